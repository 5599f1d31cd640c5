"""Text as textures."""

import os

import numpy
import pytest
from zelvarine import EngineSdlException, Font, Texture

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
WHITE = (255, 255, 255)

pytestmark = pytest.mark.skipif(not os.path.exists(DEJAVU), reason="needs the font of Debian's package fonts-dejavu-core")


@pytest.fixture(scope="module")
def font():
    return Font(DEJAVU, 16)


@pytest.mark.parametrize("text", ["Hello", "", "\U0001f600", "line\nbreak\ttab\x07", "\u200b", "\u202eabc", "long " * 2000])
def test_the_size_of_a_text_is_that_of_its_picture(font, text):
    size = font.render(text, WHITE).getSize()
    assert size == font.getRenderedTextSize(text)
    assert size[1] == font.getRenderedTextSize("one line")[1] and (size[0] > 0) == bool(text.strip("\u200b"))


@pytest.mark.parametrize("colour, alpha", [((10, 20, 30), 255), ([10, 20, 30, 128], 128), ((10.9, 20, 30, 0), 255)])
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


@pytest.mark.parametrize("colour, error, message", [
    ((1, 2), UnboundLocalError, "local variable 'r' referenced before assignment"),
    ((1, -10 ** 30, 3), OverflowError, "can't convert negative value to uint8_t"),
    ((1, 2, 256), OverflowError, "value too large to convert to uint8_t"),
    ((1, 2, 3, 10 ** 30), OverflowError, "value too large to convert to uint8_t")])
def test_bad_colours(font, colour, error, message):
    for render, text in (font.render, "text"), (font.renderLines, ["text"]):
        with pytest.raises(error) as caught:
            render(text, colour)
        assert str(caught.value) == message


@pytest.mark.parametrize("text, error", [
    (None, AttributeError), ("a\0b", ValueError), ("\ud800", UnicodeEncodeError), ("x" * 30000, EngineSdlException)])
def test_bad_texts(text, error):
    large = Font(DEJAVU, 200)
    with pytest.raises(error):
        large.render(text, WHITE)
    with pytest.raises(error):
        large.renderLines(["good", text], WHITE)


@pytest.mark.parametrize("size", [-2 ** 31, -1, 0, 65536, 2 ** 31 - 1])
def test_wild_sizes_open_or_raise(size):
    try:
        font = Font(DEJAVU, size)
    except IOError as error:
        assert "Couldn't set font size" in str(error)
        return
    font.render("text", WHITE)
    if size < 0:
        with pytest.raises((ValueError, OverflowError)):
            font.renderLines(["", ""], WHITE)


def test_files_that_are_no_fonts(font):
    for name in "no such file \u00e4", __file__:
        with pytest.raises(IOError) as caught:
            font.__init__(name, 40)
        assert str(caught.value).startswith("Unable to load font file '" + name + "': b")
    assert font.size == 16 and font.render("still open", WHITE).width > 0
    with pytest.raises(ValueError):
        Font(DEJAVU + "\0", 16)


def test_a_font_that_never_opened():
    font = Font.__new__(Font)
    for use in (lambda: font.render("text", WHITE)), (lambda: font.renderLines(["text"], WHITE)), (lambda: font.getRenderedTextSize("text")):
        with pytest.raises(RuntimeError):
            use()
