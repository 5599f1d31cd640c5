"""What the widgets cost."""
import zelvarine as z
from measure import Scenario, Timed, one_figure
from shared import parts
from shared.themes import load_theme

BUTTONS = 20, 100, 300
BUTTONS_SIZE = 640, 480
SCREEN_SIZE = 1280, 720
NOTHING_TO_BLIT = 1, 1


def buttons():
    """A screen of buttons at 640x480"""
    for count in BUTTONS:
        yield Scenario(str(count), lambda count=count: screen_of_buttons(count), BUTTONS_SIZE)


def widgets():
    """30 buttons, 40 texts and 10 sliders in panels at 1280x720, and a scroll panel of 200 rows"""
    yield Scenario("screen", lambda: one_figure(mixed_screen(SCREEN_SIZE)[0].render), SCREEN_SIZE)
    yield Scenario("layout and walk", lambda: one_figure(mixed_screen(NOTHING_TO_BLIT)[0].render))
    yield Scenario("with 40 new texts", new_texts, SCREEN_SIZE)


def renderer_of(size):
    renderer = z.UIRenderer(z.Texture(*size), True, load_theme())
    z.Engine().ecs.addSystem(renderer)
    return renderer


def grid(widgets, columns):
    return [parts.row(*widgets[i:i + columns]) for i in range(0, len(widgets), columns)]


def screen_of_buttons(count):
    renderer = renderer_of(BUTTONS_SIZE)
    columns = 4 if count <= 20 else 10 if count <= 100 else 15
    width = BUTTONS_SIZE[0] // columns - 4
    renderer.widget = parts.column(*grid([parts.button(str(i), width=width) for i in range(count)], columns))
    return one_figure(renderer.render)


def mixed_screen(size):
    texts = [parts.text("text %d" % i) for i in range(40)]
    pressed = [parts.button("button %d" % i) for i in range(30)]
    drawn = [parts.slider(i, 0, 10, width=120) for i in range(10)]
    panels = [parts.panel(*grid(widgets, 5)) for widgets in (pressed, texts, drawn)]
    rows = [parts.row(parts.text("row %d" % i), parts.button("press")) for i in range(200)]
    renderer = renderer_of(size)
    renderer.widget = parts.row(parts.column(*panels), parts.fixed(z.UIScrollPanel(parts.column(*rows)), 300, 600))
    return renderer, texts


def new_texts():
    renderer, texts = mixed_screen(SCREEN_SIZE)
    count = [0]

    def render():
        count[0] += 1
        for text in texts:
            text.text = "text %d" % count[0]
        renderer.render()

    return one_figure(render)
