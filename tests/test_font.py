"""Text as textures."""

import numpy
import pytest
from helpers import DEJAVU, needs_font
from zelvarine import EngineSdlException, Font

WHITE = (255, 255, 255)
pytestmark = needs_font


@pytest.mark.parametrize("text", ["Hello", "", "\U0001f600", "line\nbreak\ttab\x07", "\u200b", "long " * 2000])
def test_size_color_and_alpha(text):
    font = Font(DEJAVU, 16)
    rendered = font.render(text, [10.9, 20, 30, 128])
    assert rendered.getSize() == font.getRenderedTextSize(text)
    assert rendered.height == font.getRenderedTextSize("one line")[1]
    assert (rendered.width > 0) == bool(text.strip("\u200b"))
    words = numpy.array(rendered)
    assert ((words & 0xFFFFFF) == 0x0A141E).all() and (text != "Hello" or abs(int((words >> 24).max()) - 128) <= 1)


def test_lines_stand_one_below_the_other():
    font = Font(DEJAVU, 16)
    wide, narrow = numpy.array(font.render("wide line", WHITE)), numpy.array(font.render("gjy", WHITE))
    page = numpy.array(font.renderLines(["wide line", "", "gjy"], WHITE))
    assert page.shape == (len(wide) + font.size + len(narrow), wide.shape[1])
    gap, below = numpy.split(page[len(wide):], [font.size])
    opaque = narrow >> 24 == 255  # the others are blended onto black
    assert (below[:, :narrow.shape[1]][opaque] == narrow[opaque]).all() and opaque.any()
    assert not below[:, narrow.shape[1]:].any() and not gap.any()


def test_what_cannot_be_rendered():
    font = Font(DEJAVU, 200)
    for text, color, error, message in (
            ("text", (1, 2), UnboundLocalError, "local variable 'r' referenced before assignment"),
            ("text", (1, -10 ** 30, 3), OverflowError, "can't convert negative value to uint8_t"),
            ("text", (1, 2, 3, 256), OverflowError, "value too large to convert to uint8_t"),
            (None, WHITE, AttributeError, "encode"), ("x" * 30000, WHITE, EngineSdlException, "EngineException")):
        for render, given in (font.render, text), (font.renderLines, ["good", text]):
            pytest.raises(error, render, given, color).match(message)
    with pytest.raises(IOError, match="^Unable to load font file 'no such file \u00e4': b"):
        font.__init__("no such file \u00e4", 40)
    assert (font.filename, font.size) == ("no such file \u00e4", 40) and font.render("still open", WHITE).width > 0
