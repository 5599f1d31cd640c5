"""Where widgets stand and how large they are: cases computed by hand."""
import pytest
import zelvarine
from zelvarine import (ALIGN_CENTER, ALIGN_RIGHT, ANCHOR_BOTTOM, ANCHOR_CENTER, ANCHOR_RIGHT, LIST_LAYOUT_HORIZONTAL, SIZE_AUTO,
                       SIZE_FIXED, SIZE_GROW, VALIGN_BOTTOM, VALIGN_MIDDLE, UIAnchoredContainer, UIButton, UIListContainer, UIPanel,
                       UIScrollPanel, UIText, UIWidget)

from ui_reference import Stage


@pytest.fixture
def ui(tmp_path):
    return Stage(tmp_path)


def box(width, height, margins=(0,), policy=SIZE_FIXED, **fields):
    widget = UIWidget()
    widget.sizePolicyX = widget.sizePolicyY = policy
    widget.width, widget.height = width, height
    widget.setMargin(*margins)
    for name, value in fields.items():
        setattr(widget, name, value)
    return widget


def listOf(*children, size=None, kind=UIListContainer, **fields):
    container = kind()
    for child in children:
        container.addChild(child)
    for name, value in fields.items():
        setattr(container, name, value)
    if size:
        container.sizePolicyX = container.sizePolicyY = SIZE_FIXED
        container.width, container.height = size
    return container


def shown(ui, widget):
    ui.renderer.widget = widget
    ui.frame()
    return widget._x, widget._y, widget.width, widget.height


@pytest.mark.parametrize("method, prefix", [("setMargin", "margin"), ("setPadding", "padding")])
def test_shorthand_of_edges(method, prefix):
    for make in (UIListContainer, lambda: UIScrollPanel(UIWidget())):
        widget = make()
        edges = lambda: tuple(getattr(widget, prefix + side) for side in ("Top", "Right", "Bottom", "Left"))
        for values, expected in [((5,), (5, 5, 5, 5)), ((1, 2), (1, 2, 1, 2)), ((1, 2, 3), (1, 2, 3, 2)), ((1, 2.9, 3, 4), (1, 2, 3, 4))]:
            getattr(widget, method)(*values)
            assert edges() == expected
        for values in (), (1, 2, 3, 4, 5):
            with pytest.raises(ValueError) as failure:
                getattr(widget, method)(*values)
            assert str(failure.value) == "%s takes either 1, 2, 3 or 4 values. %d were given." % (method, len(values))
        with pytest.raises(TypeError):
            getattr(widget, method)(7, 8, "9", 10)
        assert edges() == (7, 8, 3, 4)


def test_a_growing_root_takes_the_target_less_its_margins(ui):
    assert shown(ui, box(1, 1, [10], SIZE_GROW)) == (0, 0, 140, 100)
    alone = box(7, 8, policy=SIZE_GROW)
    ui.root.addChild(UIListContainer(), 0, 0)
    ui.root.getChildren().append(alone)  # with neither parent nor renderer
    assert shown(ui, ui.root) == (0, 0, 160, 120) and (alone.width, alone.height) == (160, 120)


@pytest.mark.parametrize("fields, children, size", [
    ({"paddingLeft": 8, "paddingRight": 8, "paddingTop": 8, "paddingBottom": 8}, [], (16, 16)),
    ({}, [box(10, 5), box(20, 5)], (20, 10)),
    ({"layout": LIST_LAYOUT_HORIZONTAL}, [box(10, 5), box(20, 5)], (30, 5)),
    ({"layout": LIST_LAYOUT_HORIZONTAL}, [box(10, 5, (0, 4, 0, 3)), box(1, 1, isVisible=False)], (18, 5)),
    ({"kind": UIPanel}, [], (16, 16)),
    ({"size": (9, 9)}, [box(30, 30)], (9, 9))])
def test_sizes_of_lists(ui, fields, children, size):
    assert shown(ui, listOf(*children, **fields))[2:] == size


@pytest.mark.parametrize("child, place", [
    (box(31, 5, horizontalAlign=ALIGN_CENTER), (34, 0)),
    (box(101, 5, horizontalAlign=ALIGN_CENTER), (0, 0)),
    (box(20, 5, (1, 2, 3, 4), horizontalAlign=ALIGN_RIGHT), (78, 1)),
    (box(20, 5, (1, 2, 3, 4), verticalAlign=VALIGN_BOTTOM), (4, 1))])
def test_alignment_across_a_vertical_list(ui, child, place):
    shown(ui, listOf(child, size=(100, 50)))
    assert (child._x, child._y) == place


@pytest.mark.parametrize("child, place", [
    (box(5, 20, verticalAlign=VALIGN_MIDDLE), (7, 3 + 15)),
    (box(5, 53, (9,), verticalAlign=VALIGN_MIDDLE), (7 + 9, 3 - 1)),
    (box(5, 20, (1, 2, 3, 4), verticalAlign=VALIGN_BOTTOM), (7 + 4, 3 + 50 - 20 - 3))])
def test_alignment_counts_from_behind_the_leading_padding(ui, child, place):
    shown(ui, listOf(child, size=(100, 50), layout=LIST_LAYOUT_HORIZONTAL, paddingLeft=7, paddingTop=3))
    assert (child._x, child._y) == place


def test_growing_children_share_nothing(ui):
    first, second = box(0, 0, policy=SIZE_GROW), box(0, 0, policy=SIZE_GROW)
    shown(ui, listOf(first, second, size=(104, 60), layout=LIST_LAYOUT_HORIZONTAL, paddingLeft=4))
    assert (first._x, first.width, second._x, second.width, second.height) == (4, 100, 104, 100, 60)


@pytest.mark.parametrize("child, anchor, place", [
    (box(10, 8), (5, 6, ANCHOR_RIGHT, ANCHOR_BOTTOM), (145, 106)),
    (box(10, 8, (1, 3, 4, 2)), (5, 6, ANCHOR_RIGHT, ANCHOR_BOTTOM), (142, 102)),
    (box(11, 9), (0, 0, ANCHOR_CENTER, ANCHOR_CENTER), (74, 55)),
    (box(161, 123), (0, 0, ANCHOR_CENTER, ANCHOR_CENTER), (0, -1)),
    (box(9, 9, (2, 0, 0, 1)), (5, 6, zelvarine.ANCHOR_TOP, zelvarine.ANCHOR_LEFT), (6, 8)),
    (box(9, 9, (2,), SIZE_GROW), (0, 0, ANCHOR_RIGHT), (2, 2))])
def test_anchors(ui, child, anchor, place):
    ui.root.addChild(child, *anchor)
    ui.root.addChild(child, 99, 99)  # it is here already
    ui.frame()
    assert (child._x, child._y) == place
    ui.root.removeChild(child)
    ui.root.removeChild(child)
    assert ui.root.getChildren() == [] and child.getParent() is ui.root
    ui.root.addChild(child, 1, 1)
    ui.frame()
    assert (child._x, child._y) == (1 + child.marginLeft, 1 + child.marginTop)


def test_text_is_measured_as_wide_as_all_its_lines(ui):
    text = UIText("a\n\nbb")
    assert text.getRenderedTextSize() == (0, 0)
    ui.root.addChild(text, 0, 0)
    ui.frame()
    assert (text.width, text.height) == (30, 36)
    assert text.getRenderedTextSize() == (30, 12 + 7 + 12)  # an empty line is as high as the font's size
    assert text.color == (10, 20, 30, 255)
    text.setText("")
    ui.frame()
    assert (text.width, text.height, text.color) == (0, 0, (10, 20, 30, 255))


def test_a_button_centres_its_label_from_the_second_frame_on(ui):
    button = UIButton("ab")
    ui.root.addChild(button, 10, 10)
    label, = button.getChildren()
    ui.frame()
    assert (button.width, button.height, button.paddingTop, label._x, label._y) == (29, 20, 0, 14, 10)
    button.sizePolicyX = button.sizePolicyY = SIZE_FIXED
    button.width, button.height = 60, 41
    ui.frame()
    assert (button.width, button.height, button.paddingTop, label._x, label._y) == (60, 41, 14, 30, 24)


def test_scroll_panels_do_not_measure_their_content(ui):
    panel = UIScrollPanel(box(100, 300))
    panel.sizePolicyX = panel.sizePolicyY = SIZE_AUTO
    assert shown(ui, panel) == (0, 0, 50, 50)
    panel.sizePolicyX, panel.sizePolicyY = SIZE_FIXED, SIZE_GROW
    panel.width = 80
    panel.content = grown = box(0, 0, (3,), SIZE_GROW)
    assert shown(ui, panel) == (0, 0, 80, 120) and (grown.width, grown.height) == (80 - 20 - 9 - 6, 120 - 20 - 6)


def test_hostile_numbers_stay_in_32_bits(ui):
    low, high = -2 ** 31, 2 ** 31 - 1
    kinds = (UIWidget, lambda: UIText("x"), lambda: UIButton("x"), UIPanel, lambda: zelvarine.UISlider(high, low, high),
             lambda: zelvarine.UISlider(low, low, high, 1), lambda: zelvarine.UIImage(zelvarine.Texture(3, 3)), UIAnchoredContainer,
             lambda: UIScrollPanel(box(high, high)))
    for x, y, width, height, margin in [(low, low, high, high, 0), (high, high, high, high, low), (0, low, high, 5, high),
                                        (low, 0, 3, low, 7), (-2, -3, high, high, high)]:
        for kind in kinds:
            widget = kind()
            widget.sizePolicyX = widget.sizePolicyY = SIZE_FIXED
            widget._x, widget._y, widget.width, widget.height = x, y, width, height
            widget.setMargin(margin)
            for container in (listOf(widget, box(high, high)), listOf(widget, layout=LIST_LAYOUT_HORIZONTAL, paddingTop=high), widget):
                shown(ui, container)
                widget._x, widget._y = x, y
                for clip in (), (0, 0, high, high), (high, high, high, high), (2 ** 40, 0, 2 ** 62, 9):
                    widget.render(*clip)
                widget.update(high, low, True)
                widget.update(low, high, True)
                widget.update(0, 0, False)
            ui.root.removeAllChildren()
            ui.root.addChild(widget, low, high, ANCHOR_CENTER, ANCHOR_RIGHT)
            shown(ui, ui.root)
