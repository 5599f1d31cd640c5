"""Text as textures."""

import numpy
import pytest
from helpers import DEJAVU, needsFont
from zelvarine import EngineSdlException, Font, Texture

WHITE = (255, 255, 255)
pytestmark = needsFont


@pytest.fixture(scope="module")
def font():
    return Font(DEJAVU, 16)


@pytest.mark.parametrize("text", ["Hello", "", "\U0001f600", "line\nbreak\ttab\x07", "\u200b", "long " * 2000])
def test_the_size_of_a_text_is_that_of_its_picture(font, text):
    size = font.render(text, WHITE).getSize()
    assert size == font.getRenderedTextSize(text)
    assert size[1] == font.getRenderedTextSize("one line")[1] and (size[0] > 0) == bool(text.strip("\u200b"))


@pytest.mark.parametrize("colour, alpha", [((10, 20, 30), 255), ([10.9, 20, 30, 128], 128)])
def test_text_has_its_colour_everywhere_and_its_alpha_at_most(font, colour, alpha):
    words = numpy.array(font.render("Hello", colour))
    assert ((words & 0xFFFFFF) == 0x0A141E).all()
    assert (words >> 24).min() == 0 and abs(int((words >> 24).max()) - alpha) <= 1


def test_text_draws_like_the_same_pixels_from_a_file(font, tmp_path):
    text = font.render("Odd width", (255, 0, 0, 200))  # rows that SDL_ttf pads
    text.saveFile(str(tmp_path / "text.png"))
    pages = []
    for source in text, Texture(str(tmp_path / "text.png")):
        page = Texture(text.width + 3, text.height + 3)
        page.fill((0, 90, 200))
        page.copyFrom(source)
        pages.append(numpy.array(page))
    assert (pages[0] == pages[1]).all() and len(numpy.unique(pages[0])) > 10


def test_lines_stand_one_below_the_other(font):
    wide, narrow = numpy.array(font.render("wide line", WHITE)), numpy.array(font.render("gjy", WHITE))
    page = numpy.array(font.renderLines(["wide line", "", "gjy"], WHITE))
    assert page.shape == (len(wide) + font.size + len(narrow), wide.shape[1])
    gap, below = numpy.split(page[len(wide):], [font.size])
    opaque = narrow >> 24 == 255  # the others are blended onto black
    assert (below[:, :narrow.shape[1]][opaque] == narrow[opaque]).all() and opaque.any()
    assert not below[:, narrow.shape[1]:].any() and not gap.any()
    assert font.renderLines(["", ""], WHITE).getSize() == (0, 2 * font.size)
    assert font.renderLines([], WHITE).getSize() == (0, 0)


@pytest.mark.parametrize("text, colour, error, message", [
    ("text", (1, 2), UnboundLocalError, "local variable 'r' referenced before assignment"),
    ("text", (1, 2, 3, 4, 5), UnboundLocalError, "local variable 'r' referenced before assignment"),
    ("text", (1, -10 ** 30, 3), OverflowError, "can't convert negative value to uint8_t"),
    ("text", (1, 2, 3, 256), OverflowError, "value too large to convert to uint8_t"),
    (None, WHITE, AttributeError, "encode"), ("a\0b", WHITE, ValueError, "null"),
    ("x" * 30000, WHITE, EngineSdlException, "")])
def test_bad_colours_and_texts(text, colour, error, message):
    font = Font(DEJAVU, 200)
    for render, given in (font.render, text), (font.renderLines, ["good", text]):
        with pytest.raises(error, match=message):
            render(given, colour)


def test_files_that_are_no_fonts(font):
    for name in "no such file \u00e4", __file__:
        with pytest.raises(IOError) as caught:
            font.__init__(name, 40)
        assert str(caught.value).startswith("Unable to load font file '" + name + "': b")
    assert font.size == 16 and font.render("still open", WHITE).width > 0
    with pytest.raises(IOError, match="Couldn't set font size"):
        Font(DEJAVU, 2 ** 31 - 1)
