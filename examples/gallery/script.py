"""Plays with the gallery as a visitor would, and takes pictures on the way."""

from shared.puppet import middle

KNOB_AT = 30  # from the end of a slider to where its knob is at its lowest value, about


def play(gallery, folder):
    """Gives the names of the pictures."""
    engine = gallery.engine
    pictures = []

    def take(name):
        engine.update()  # labels find their place in the second frame
        pictures.append("%02d-%s.png" % (len(pictures) + 1, name))
        gallery.save_picture(folder, pictures[-1])

    for name, button in gallery.buttons.items():
        engine.click_on(button)
        take(name.lower())
    _mix_a_color(engine, gallery.sliders)
    take("sliders-moved")
    engine.click_on(gallery.buttons["Scrolling"])
    _scroll(engine, gallery.scrolling)
    take("scrolled")
    return pictures


def _mix_a_color(engine, sliders):
    """Drags knobs, and presses the buttons at the ends."""
    for knob, share in list(zip(sliders.channels, (0.1, 0.4, 0.9))) + [(sliders.alpha, 0.6), (sliders.width, 0.75)]:
        x, y = _knob(knob)
        engine.drag(x, y, knob._x + int(share * knob.width), y + 5)
    tall = sliders.height
    engine.click(tall._x + tall.width // 2, tall._y + 8)
    engine.click(tall._x + tall.width // 2, tall._y + 8)
    print("color %d, %d, %d, alpha %d, picture %d by %d" % (
        tuple(channel.value for channel in sliders.channels)
        + (sliders.alpha.value, sliders.width.value, sliders.height.value)))


def _knob(slider):
    """The middle of a horizontal slider's knob."""
    _, y = middle(slider)
    track = slider.width - 2 * KNOB_AT
    return slider._x + KNOB_AT + int(track * slider.percent), y


def _scroll(engine, page):
    """Turns the wheel over one panel, drags the bar of the other, and presses a button that came into sight."""
    x, y = middle(page.text)
    engine.turn_wheel(x, y, -2)
    bar = page.list
    right = bar._x + bar.width - 16
    engine.drag(right, bar._y + 36, right, bar._y + bar.height // 2)
    engine.update()
    line = [line for line in bar.content.getChildren() if line._y > bar._y + 100][0]
    name, press, _ = line.getChildren()
    engine.click_on(press)
    page.shift(150)
    engine.update()
    print("scrolled to %d, %d and %d, and %s" % (
        bar.scrollPosY, page.text.scrollPosY, page.field.scrollPosX, name.text))
