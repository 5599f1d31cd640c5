# What the extension module zelvarine offers, for type checkers and editors.
"""Zelvarine is a game engine with a raycasting renderer and some simple UI
capabilities.
"""
import math as math
import os as os
import time as time
from threading import Timer as Timer
from typing import (
    Any, Callable, ClassVar, Dict, Iterator, List, Optional, Sequence, SupportsFloat, SupportsInt, Tuple, Type, TypeVar,
    Union, ValuesView, overload,
)

_T = TypeVar("_T")
_Class = TypeVar("_Class", bound=type)
_Int = SupportsInt  # a float is cut off towards zero
_Float = SupportsFloat
_Color = Sequence[int]  # (r, g, b) or (r, g, b, a)
_Dict = Dict[str, Any]  # an object of a JSON file

__version__: str
_COMPONENTS: Dict[Any, Any]  # name to class, and class to name
ASCII_CELLS: List[str]
soundVolume: int

IMG_INIT_PNG: int
BLENDMODE_BLEND: int
BLENDMODE_ADD: int
TEXTURE_FLOOR: int
TEXTURE_CEILING: int
TEXTURE_NORTH: int
TEXTURE_EAST: int
TEXTURE_SOUTH: int
TEXTURE_WEST: int
BLOCK_EMPTY: int
BLOCK_SQUARE: int
BLOCK_TRIANGLE_NORTH_WEST: int
BLOCK_TRIANGLE_NORTH_EAST: int
BLOCK_TRIANGLE_SOUTH_EAST: int
BLOCK_TRIANGLE_SOUTH_WEST: int
ALIGN_LEFT: int
ALIGN_RIGHT: int
ALIGN_CENTER: int
VALIGN_TOP: int
VALIGN_BOTTOM: int
VALIGN_MIDDLE: int
SIZE_AUTO: int
SIZE_FIXED: int
SIZE_GROW: int
LIST_LAYOUT_HORIZONTAL: int
LIST_LAYOUT_VERTICAL: int
ANCHOR_LEFT: int
ANCHOR_RIGHT: int
ANCHOR_TOP: int
ANCHOR_BOTTOM: int
ANCHOR_CENTER: int
SLIDER_ORIENTATION_HORIZONTAL: int
SLIDER_ORIENTATION_VERTICAL: int
MOUSE_LEFT: int
MOUSE_MIDDLE: int
MOUSE_RIGHT: int

KEY_A: int
KEY_B: int
KEY_C: int
KEY_D: int
KEY_E: int
KEY_F: int
KEY_G: int
KEY_H: int
KEY_I: int
KEY_J: int
KEY_K: int
KEY_L: int
KEY_M: int
KEY_N: int
KEY_O: int
KEY_P: int
KEY_Q: int
KEY_R: int
KEY_S: int
KEY_T: int
KEY_U: int
KEY_V: int
KEY_W: int
KEY_X: int
KEY_Y: int
KEY_Z: int
KEY_UNKNOWN: int
KEY_RETURN: int
KEY_ESCAPE: int
KEY_BACKSPACE: int
KEY_TAB: int
KEY_SPACE: int
KEY_EXCLAIM: int
KEY_QUOTEDBL: int
KEY_HASH: int
KEY_PERCENT: int
KEY_DOLLAR: int
KEY_AMPERSAND: int
KEY_QUOTE: int
KEY_LEFTPAREN: int
KEY_RIGHTPAREN: int
KEY_ASTERISK: int
KEY_PLUS: int
KEY_COMMA: int
KEY_MINUS: int
KEY_PERIOD: int
KEY_SLASH: int
KEY_0: int
KEY_1: int
KEY_2: int
KEY_3: int
KEY_4: int
KEY_5: int
KEY_6: int
KEY_7: int
KEY_8: int
KEY_9: int
KEY_COLON: int
KEY_SEMICOLON: int
KEY_LESS: int
KEY_EQUALS: int
KEY_GREATER: int
KEY_QUESTION: int
KEY_AT: int
KEY_LEFTBRACKET: int
KEY_BACKSLASH: int
KEY_RIGHTBRACKET: int
KEY_CARET: int
KEY_UNDERSCORE: int
KEY_BACKQUOTE: int
KEY_CAPSLOCK: int
KEY_F1: int
KEY_F2: int
KEY_F3: int
KEY_F4: int
KEY_F5: int
KEY_F6: int
KEY_F7: int
KEY_F8: int
KEY_F9: int
KEY_F10: int
KEY_F11: int
KEY_F12: int
KEY_PRINTSCREEN: int
KEY_SCROLLLOCK: int
KEY_PAUSE: int
KEY_INSERT: int
KEY_HOME: int
KEY_PAGEUP: int
KEY_DELETE: int
KEY_END: int
KEY_PAGEDOWN: int
KEY_RIGHT: int
KEY_LEFT: int
KEY_DOWN: int
KEY_UP: int
KEY_NUMLOCKCLEAR: int
KEY_KP_DIVIDE: int
KEY_KP_MULTIPLY: int
KEY_KP_MINUS: int
KEY_KP_PLUS: int
KEY_KP_ENTER: int
KEY_KP_1: int
KEY_KP_2: int
KEY_KP_3: int
KEY_KP_4: int
KEY_KP_5: int
KEY_KP_6: int
KEY_KP_7: int
KEY_KP_8: int
KEY_KP_9: int
KEY_KP_0: int
KEY_KP_PERIOD: int
KEY_APPLICATION: int
KEY_POWER: int
KEY_KP_EQUALS: int
KEY_F13: int
KEY_F14: int
KEY_F15: int
KEY_F16: int
KEY_F17: int
KEY_F18: int
KEY_F19: int
KEY_F20: int
KEY_F21: int
KEY_F22: int
KEY_F23: int
KEY_F24: int
KEY_EXECUTE: int
KEY_HELP: int
KEY_MENU: int
KEY_SELECT: int
KEY_STOP: int
KEY_AGAIN: int
KEY_UNDO: int
KEY_CUT: int
KEY_COPY: int
KEY_PASTE: int
KEY_FIND: int
KEY_MUTE: int
KEY_VOLUMEUP: int
KEY_VOLUMEDOWN: int
KEY_KP_COMMA: int
KEY_KP_EQUALSAS400: int
KEY_ALTERASE: int
KEY_SYSREQ: int
KEY_CANCEL: int
KEY_CLEAR: int
KEY_PRIOR: int
KEY_RETURN2: int
KEY_SEPARATOR: int
KEY_OUT: int
KEY_OPER: int
KEY_CLEARAGAIN: int
KEY_CRSEL: int
KEY_EXSEL: int
KEY_KP_00: int
KEY_KP_000: int
KEY_THOUSANDSSEPARATOR: int
KEY_DECIMALSEPARATOR: int
KEY_CURRENCYUNIT: int
KEY_CURRENCYSUBUNIT: int
KEY_KP_LEFTPAREN: int
KEY_KP_RIGHTPAREN: int
KEY_KP_LEFTBRACE: int
KEY_KP_RIGHTBRACE: int
KEY_KP_TAB: int
KEY_KP_BACKSPACE: int
KEY_KP_A: int
KEY_KP_B: int
KEY_KP_C: int
KEY_KP_D: int
KEY_KP_E: int
KEY_KP_F: int
KEY_KP_XOR: int
KEY_KP_POWER: int
KEY_KP_PERCENT: int
KEY_KP_LESS: int
KEY_KP_GREATER: int
KEY_KP_AMPERSAND: int
KEY_KP_DBLAMPERSAND: int
KEY_KP_VERTICALBAR: int
KEY_KP_DBLVERTICALBAR: int
KEY_KP_COLON: int
KEY_KP_HASH: int
KEY_KP_SPACE: int
KEY_KP_AT: int
KEY_KP_EXCLAM: int
KEY_KP_MEMSTORE: int
KEY_KP_MEMRECALL: int
KEY_KP_MEMCLEAR: int
KEY_KP_MEMADD: int
KEY_KP_MEMSUBTRACT: int
KEY_KP_MEMMULTIPLY: int
KEY_KP_MEMDIVIDE: int
KEY_KP_PLUSMINUS: int
KEY_KP_CLEAR: int
KEY_KP_CLEARENTRY: int
KEY_KP_BINARY: int
KEY_KP_OCTAL: int
KEY_KP_DECIMAL: int
KEY_KP_HEXADECIMAL: int
KEY_LCTRL: int
KEY_LSHIFT: int
KEY_LALT: int
KEY_LGUI: int
KEY_RCTRL: int
KEY_RSHIFT: int
KEY_RALT: int
KEY_RGUI: int
KEY_MODE: int
KEY_AUDIONEXT: int
KEY_AUDIOPREV: int
KEY_AUDIOSTOP: int
KEY_AUDIOPLAY: int
KEY_AUDIOMUTE: int
KEY_MEDIASELECT: int
KEY_WWW: int
KEY_MAIL: int
KEY_CALCULATOR: int
KEY_COMPUTER: int
KEY_AC_SEARCH: int
KEY_AC_HOME: int
KEY_AC_BACK: int
KEY_AC_FORWARD: int
KEY_AC_STOP: int
KEY_AC_REFRESH: int
KEY_AC_BOOKMARKS: int
KEY_BRIGHTNESSDOWN: int
KEY_BRIGHTNESSUP: int
KEY_DISPLAYSWITCH: int
KEY_KBDILLUMTOGGLE: int
KEY_KBDILLUMDOWN: int
KEY_KBDILLUMUP: int
KEY_EJECT: int
KEY_SLEEP: int

TERMINAL_RED: TerminalColor
TERMINAL_RED_BG: TerminalColor
TERMINAL_GREEN: TerminalColor
TERMINAL_GREEN_BG: TerminalColor
TERMINAL_YELLOW: TerminalColor
TERMINAL_YELLOW_BG: TerminalColor
TERMINAL_BLUE: TerminalColor
TERMINAL_BLUE_BG: TerminalColor
TERMINAL_MAGENTA: TerminalColor
TERMINAL_MAGENTA_BG: TerminalColor
TERMINAL_CYAN: TerminalColor
TERMINAL_CYAN_BG: TerminalColor
TERMINAL_WHITE: TerminalColor
TERMINAL_WHITE_BG: TerminalColor

def clearTerminal() -> None:
    """Clears the terminal."""
def component(name: str) -> Callable[[_Class], _Class]:
    """Registers a class as a component type; a class decorator.

    The name is the key string used inside the JSON level files. The class is created without
    arguments; it may offer loadFromDict(level, input) and dumpToDict(level), else its instance
    dictionary is loaded and saved. TypeError if the name is no str or the class no plain class.
    @param(name, str)
    @return(function)
    """
def getSoundVolume() -> int:
    """The volume of sounds as last set, 128 at the start: the value of the module's `soundVolume`, which
    scripts may set as well; `Sound.play` applies it.
    @return(int)
    """
def setSoundVolume(volume: _Int) -> None:
    """Sets the volume of all sounds, also of those that play; from 0 to 128, as at the start.
    @param(volume, int)
    """
def getMusicVolume() -> int:
    """The volume of the music, from 0 to 128.
    @return(int)
    """
def setMusicVolume(volume: _Int) -> None:
    """Sets the volume of the music; from 0 to 128, as at the start.
    @param(volume, int)
    """

class TerminalColor:
    """Colors what is printed inside a `with` block.

    The end of the block resets all colors, so blocks do not nest.
    @param(color, str) the escape sequence that switches to the color
    """
    def __init__(self, color: str) -> None: ...
    def __enter__(self: _T) -> _T: ...
    def __exit__(self, type: object, value: object, traceback: object) -> None: ...

class EngineException(Exception):
    """The base class for all exceptions of the engine.

    @param(msg, str)
    """
    msg: str
    def __init__(self, msg: str) -> None: ...

class EngineSdlException(EngineException):
    """A failure of SDL or one of its companion libraries.

    `error` is what SDL said of its last failure when the exception was made, as bytes.
    @param(msg, str)
    """
    error: bytes
    def __init__(self, msg: str) -> None: ...

class LevelFormatException(EngineException):
    """A level cannot be loaded, because of invalid file content or an invalid level format.

    @param(filename, str)
    @param(msg, str)
    """
    filename: str
    def __init__(self, filename: str, msg: str) -> None: ...

class Vector2:
    """A mutable two-dimensional vector of floats.

    `+` and `-` take two vectors and give a new one. `a * b` is the dot product of two vectors,
    a float; `a * s` with any number `s` on the right is a new, scaled vector.
    """
    x: float
    """x coordinate, float"""
    y: float
    """y coordinate, float"""
    _x: float
    """the same as x"""
    _y: float
    """the same as y"""
    @property
    def length(self) -> float:
        """the square root of x*x + y*y, float"""
    def __init__(self, x: _Float, y: _Float) -> None: ...
    def set(self, other: Vector2) -> None:
        """Copies the coordinates of `other`.
        @param(other, Vector2)
        """
    def add(self, other: Vector2) -> None:
        """Adds `other` to this vector.
        @param(other, Vector2)
        """
    def sub(self, other: Vector2) -> None:
        """Subtracts `other` from this vector.
        @param(other, Vector2)
        """
    def scale(self, factor: _Float) -> None:
        """Multiplies both coordinates by `factor`.
        @param(factor, number)
        """
    def rotate(self, angle: _Float) -> None:
        """Rotates by `angle` degrees, from the positive x axis towards the positive y axis:
        clockwise on a map, where y grows to the south.
        @param(angle, float)
        """
    def negate(self) -> None:
        """Changes the sign of both coordinates."""
    def normalize(self) -> None:
        """Divides by the length; a vector of length 0 stays as it is."""
    def copy(self) -> Vector2:
        """A new vector of the same coordinates.
        @return(Vector2 or None)
        """
    def getDegrees(self) -> float:
        """The angle from the positive x axis, atan2(y, x), in degrees from -180 to 180.
        @return(float)
        """
    def angleTo(self, other: Vector2) -> float:
        """The unsigned angle between two vectors, acos of their normalised dot product, in radians
        from 0 to pi. Raises ZeroDivisionError when one of them has length 0.
        @param(other, Vector2)
        @return(float)
        """
    def angleToInDegrees(self, other: Vector2) -> float:
        """`angleTo(other)` in degrees.
        @param(other, Vector2)
        @return(float)
        """
    def __add__(self, __other: Vector2) -> Vector2: ...
    def __sub__(self, __other: Vector2) -> Vector2: ...
    @overload
    def __mul__(self, __other: Vector2) -> float: ...
    @overload
    def __mul__(self, __other: _Float) -> Vector2: ...

class Event:
    """The base class of all events."""
    isAlreadyHandled: bool
    """bool; a note from one handler for whoever looks at the event later"""
    def __init__(self) -> None: ...

class KeyEvent(Event):
    """A key went down, or repeats because it is held."""
    @property
    def key(self) -> int:
        """keycode, one of the KEY_* constants; the same with and without Shift"""
    @property
    def isCtrlPressed(self) -> bool:
        """bool; whether a Ctrl key is held"""
    @property
    def isAltPressed(self) -> bool:
        """bool; whether an Alt key is held"""
    @property
    def isShiftPressed(self) -> bool:
        """bool; whether a Shift key is held"""
    def __init__(self, key: _Int, isCtrlPressed: bool, isAltPressed: bool, isShiftPressed: bool) -> None: ...

class MouseClickEvent(Event):
    """A mouse button was released. The position is in pixels of the picture, whatever the window's size."""
    @property
    def x(self) -> int:
        """x coordinate in the picture, int"""
    @property
    def y(self) -> int:
        """y coordinate in the picture, int"""
    @property
    def button(self) -> int:
        """the button, one of the MOUSE_* constants"""
    def __init__(self, x: _Int, y: _Int, button: _Int) -> None: ...

class MouseWheelEvent(Event):
    """The mouse wheel was turned."""
    @property
    def x(self) -> int:
        """amount to the right, int"""
    @property
    def y(self) -> int:
        """amount away from the user, int"""
    def __init__(self, x: _Int, y: _Int) -> None: ...

class FullscreenEvent(Event):
    """`Engine.toggleFullscreen` changed the window."""
    @property
    def oldValue(self) -> bool:
        """bool; whether it was in fullscreen before"""
    @property
    def newValue(self) -> bool:
        """bool; whether it is in fullscreen now"""
    def __init__(self, oldValue: bool, newValue: bool) -> None: ...

class JoystickAddedEvent(Event):
    """A joystick was plugged in, or was there from the start."""
    @property
    def joystick(self) -> Joystick:
        """the Joystick"""
    def __init__(self, joystick: Joystick) -> None: ...

class MusicStoppedEvent(Event):
    """The music has ended: by itself, by Music.stop or by a fade-out."""
    def __init__(self) -> None: ...

class CollisionEvent(Event):
    """An entity has run into something: `entity1` moved, `entity2` is the body that it ran into, or None for
    a wall.
    """
    @property
    def entity1(self) -> Entity:
        """the entity that moved"""
    @property
    def entity2(self) -> Optional[Entity]:
        """the body that it ran into, or None for a wall"""
    def __init__(self, entity1: Entity, entity2: Optional[Entity]) -> None: ...

class Joystick:
    """A joystick or gamepad. The engine makes them, see `Engine.joysticks`; one that a script makes has no
    device. Without a device, and after `Engine.quit`, all axes are at 0.0 and no button is pressed.
    """
    @property
    def name(self) -> str:
        """the name of the device, str"""
    @property
    def axes(self) -> int:
        """number of axes, int"""
    @property
    def buttons(self) -> int:
        """number of buttons, int"""
    def __init__(self, name: str, axes: _Int, buttons: _Int) -> None: ...
    def getAxis(self, axis: _Int) -> float:
        """Position of an axis, counted from 0: from -1.0 to just below 1.0. An axis that the device does
        not have is at 0.0.
        @param(axis, int)
        @return(float)
        """
    def isButtonPressed(self, button: _Int) -> bool:
        """Whether a button, counted from 0, is pressed; False for one that the device does not have.
        @param(button, int)
        @return(bool)
        """

class Resource:
    """The abstract base class for all kinds of resoruces."""
    _filename: Optional[str]
    """the name of the file; None before the constructor ran"""
    @property
    def filename(self) -> str:
        """the name of the file"""
    def __init__(self, filename: str) -> None: ...

class Texture(Resource):
    """A software image of 32-bit pixels 0xAARRGGBB.

    Texture(w, h) with two ints is an empty image, transparent black. Texture(texture) copies an image,
    blending it onto transparent black. Texture(filename) loads an image file; IOError if that fails.
    A negative size, or one of more than 2 GiB, raises ValueError; one that memory does not hold
    EngineSdlException.

    The pixels are open to scripts through the buffer protocol: memoryview(texture) and
    numpy.asarray(texture) are writable views of shape (height, width), one unsigned 32-bit word a
    pixel, without a copy.
    """
    @property
    def width(self) -> int:
        """width in pixels, int"""
    @property
    def height(self) -> int:
        """height in pixels, int"""
    def __init__(self, w: Union[int, Texture, str], h: Optional[int] = None) -> None: ...
    def getSize(self) -> Tuple[int, int]:
        """Width and height in pixels.
        @return((int, int))
        """
    def fill(self, color: _Color) -> None:
        """Overwrites every pixel; without alpha the color is opaque.
        Raises TypeError unless there are 3 or 4 integers, OverflowError for a negative one. A component
        above 255 runs into its neighbour.
        @param(color, (r, g, b) or (r, g, b, a))
        """
    def fillChecker(self) -> None:
        """Paints a checker of two by two fields, the look of a missing image."""
    def copyFrom(self, other: Texture) -> None:
        """Blits the whole of `other` with its top left corner onto this one's: opaque pixels overwrite,
        translucent ones blend.
        @param(other, Texture)
        """
    def saveFile(self, filename: str) -> None:
        """Writes the image as a PNG file; the name should end with '.png'. A failed write, as into a folder that
        does not exist, raises nothing.
        @param(filename, str)
        """
    def __buffer__(self, __flags: int) -> memoryview: ...

class Font(Resource):
    """A font resource. Fonts can be loaded from TTF files."""
    @property
    def size(self) -> int:
        """size in points, int"""
    def __init__(self, filename: str, size: _Int) -> None: ...
    def getFontSize(self) -> int:
        """The size in points.
        @return(int)
        """
    def getRenderedTextSize(self, text: str) -> Tuple[int, int]:
        """Width and height in pixels that `render` gives this text. A line break is a character like any other.
        @param(text, str)
        @return((int, int))
        """
    def render(self, text: str, color: _Color) -> Texture:
        """A new texture with one line of text, anti-aliased on transparency. Text of no width, like an empty
        one, gives a texture of width 0.

        The color is opaque without alpha, and with an alpha of 0. A component outside 0 to 255 raises
        OverflowError, a text that cannot be rendered EngineSdlException.
        @return(Texture)
        @param(text, str)
        @param(color, (r, g, b) or (r, g, b, a))
        """
    def renderLines(self, lines: Sequence[str], color: _Color) -> Texture:
        """A new texture with the lines one below the other, left-aligned. An empty line is as high as the
        size of the font. Colors and errors are those of `render`.
        @return(Texture)
        @param(lines, sequence of str)
        @param(color, (r, g, b) or (r, g, b, a))
        """

class Sound(Resource):
    """A short sample held in memory, loaded from a WAV or OGG file; IOError if that fails.

    Keep the object as long as it is to be heard: its playbacks end with it.
    """
    def __init__(self, filepath: str) -> None: ...
    def play(self) -> SoundHandle:
        """Plays once on any free channel, and sets all channels to the sound volume.
        Raises EngineException if no channel is free.
        @return(SoundHandle)
        """
    def loop(self, times: _Int) -> SoundHandle:
        """Plays `times` times in a row, without end for 0 or less, on any free channel at the volume that
        the channel has. Raises EngineException if no channel is free.
        @return(SoundHandle)
        @param(times, int)
        """

class SoundHandle:
    """Controls the sound that plays on one channel of the mixer, as Sound.play gives it.

    It stands for the channel: once another sound plays there, it acts on that one. A negative
    channel stands for none, and a number beyond the engine's channels never plays.
    """
    def __init__(self, channel: _Int) -> None: ...
    def stop(self) -> None:
        """Ends the sound."""
    def pause(self) -> None:
        """Holds the sound where it is."""
    def resume(self) -> None:
        """Goes on after `pause`."""
    def isPlaying(self) -> Optional[int]:
        """1 while the sound plays or is paused, 0 after its end; None without a channel.
        @return(int or None)
        """

class Music(Resource):
    """A piece of music that is read from its file while it plays; IOError if it cannot be loaded.

    One music plays at a time: starting one ends the one before, or waits while that fades out. Fades
    take half an hour at most.
    When it ends by itself, by `stop` or by a fade-out, the engine fires a MusicStoppedEvent in one
    of the next frames. Keep the object as long as it is to be heard.
    """
    def __init__(self, filepath: str) -> None: ...
    def play(self, pos: Optional[_Float] = None) -> None:
        """Plays once, from `pos` in seconds if it is given. Raises EngineException if that fails.
        @param(pos=None, float or None)
        """
    def loop(self, times: _Int) -> None:
        """Plays `times` times in a row, without end for 0 or less. Raises EngineException if that fails.
        @param(times, int)
        """
    def stop(self) -> None:
        """Ends the music that plays, whichever it is."""
    def pause(self) -> None:
        """Holds the music that plays, whichever it is."""
    def resume(self) -> None:
        """Goes on after `pause`."""
    def fadeOut(self, milliseconds: _Int) -> None:
        """Ends the music that plays, whichever it is, by turning it down gradually.
        @param(milliseconds, int)
        """
    def fadeIn(self, milliseconds: _Int, pos: _Float = 0.0) -> None:
        """Plays once from `pos` in seconds, turned up gradually. A failure raises nothing.
        @param(milliseconds, int)
        @param(pos=0.0, float)
        """
    def fadeInLoop(self, milliseconds: _Int, times: _Int, pos: _Float = 0.0) -> None:
        """Plays `times` times in a row, without end for 0 or less, from `pos` in seconds and turned up
        gradually at the start. A failure raises nothing.
        @param(milliseconds, int)
        @param(times, int)
        @param(pos=0.0, float)
        """

class Entity:
    """An object of the game world: a bag of components, at most one of each exact type.

    The first argument is the id, all further ones are components. Without an id, the entity gets
    one when it is first added to an Ecs. Raises ValueError for an id that is not exactly an int.
    """
    _components: Dict[type, Any]
    """dict from exact type to component"""
    _ecs: Optional[Ecs]
    """the Ecs that the entity is in, or None"""
    _id: int
    """the id; -1 means that none has been given yet"""
    @property
    def id(self) -> int:
        """the id; -1 means that none has been given yet"""
    def __init__(self, id: int = -1, *args: object) -> None: ...
    def addComponent(self, component: object) -> None:
        """Adds a component; if the entity has one of the same exact type already, nothing happens.
        @param(component, object)
        """
    def removeComponent(self, component: object) -> None:
        """Removes the component of the type of `component`, whichever instance that is.
        @param(component, object)
        """
    def removeComponentType(self, componentType: type) -> None:
        """Removes the component of that exact type; nothing happens if there is none.
        @param(componentType, type)
        """
    def getComponent(self, componentType: Type[_T]) -> Optional[_T]:
        """The component of that exact type, or None.
        @return(object or None)
        @param(componentType, type)
        """
    def getComponents(self) -> ValuesView[Any]:
        """A live view of all components.
        @return(dict_values)
        """

class AbstractSystem:
    """The base class of all systems.

    A system is interested in entities that have all the component types given here; without any,
    in every entity. The Ecs keeps its list of entities in step.
    """
    _interestedComponentTypes: Tuple[type, ...]
    """tuple of the types that a member must all have"""
    _entities: List[Entity]
    """list of the members, in order of joining"""
    _ecs: Optional[Ecs]
    """the Ecs that this system is in, or None"""
    _engine: Optional[Engine]
    """the engine that this system is in, or None"""
    @property
    def entities(self) -> List[Entity]:
        """the list of the members itself, in order of joining"""
    def __init__(self, *args: type) -> None: ...
    def update(self, timeStep: float) -> None:
        """Called once per frame; calls `_updateEntity` for each member. `timeStep` is in seconds.
        @param(timeStep, float)
        """
    def _updateEntity(self, entity: Entity, timeStep: float) -> None:
        """Processes one entity; override it. Does nothing here. `timeStep` is in seconds.
        @param(entity, object)
        @param(timeStep, float)
        """
    def _interestedIn(self, entity: Entity) -> bool:
        """Whether the entity has all the component types of this system.
        @param(entity, object)
        @return(bool)
        """
    def _updateEntityMembership(self, entity: Entity) -> None:
        """Lets the entity join or leave this system, according to `_interestedIn`.
        @param(entity, object)
        """
    def _removeEntity(self, entity: Entity) -> None:
        """Drops the entity from this system, if it is a member.
        @param(entity, object)
        """
    def _setEcs(self, ecs: Optional[Ecs]) -> None:
        """Called when the system joins or, with None, leaves an Ecs.
        @param(ecs, Ecs or None)
        """
    def getEcs(self) -> Optional[Ecs]:
        """The Ecs that this system is in, or None.
        @return(Ecs or None)
        """
    def _setEngine(self, engine: Optional[Engine]) -> None:
        """Called when the system joins or, with None, leaves an engine; override it to do work then.
        @param(engine, Engine or None)
        """
    def getEngine(self) -> Union[Engine, Any]:
        """The engine that this system is in, or None.
        @return(Engine or None)
        """

class Ecs:
    """The registry of all entities and systems of an engine. `engine` is an Engine or None."""
    def __init__(self, engine: Optional[Engine]) -> None: ...
    def update(self, timeStep: float) -> None:
        """Updates every system, in the order in which they were added. `timeStep` is in seconds. An
        exception from a system leaves at once; the systems after it are skipped.
        @param(timeStep, float)
        """
    def addEntity(self, entity: Entity) -> None:
        """Adds an entity and lets it join the systems that are interested in it. An entity with the id -1
        gets the identity number of the object as its id.
        @param(entity, object)
        """
    def removeEntity(self, entity: Entity) -> None:
        """Removes an entity; nothing happens if it is not here.
        @param(entity, object)
        """
    def removeAllEntities(self) -> None:
        """Removes all entities."""
    @overload
    def getEntities(self) -> List[Entity]:  # type: ignore[misc]
        """Without arguments the live list of all entities. With component types, an iterator over the
        entities that have all of them; it can be walked once.
        @return(object)
        """
    @overload
    def getEntities(self, *args: type) -> Iterator[Entity]:
        """Without arguments the live list of all entities. With component types, an iterator over the
        entities that have all of them; it can be walked once.
        @return(object)
        """
    def getEntityById(self, id: object) -> Optional[Entity]:
        """The first entity whose id equals `id`, which may be any object, or None.
        @return(object or None)
        @param(id, object)
        """
    def getSystems(self) -> List[AbstractSystem]:
        """The live list of all systems.
        @return(list)
        """
    def addSystem(self, system: AbstractSystem) -> None:
        """Adds a system, unless it is here already, tells it its Ecs and Engine, and lets the entities join it.
        @param(system, object)
        """
    def removeSystem(self, system: AbstractSystem) -> None:
        """Removes a system and empties its list of entities.
        @param(system, object)
        """
    def _updateEntityMembership(self, entity: Entity) -> None:
        """Lets every system look at the entity's components anew.
        @param(entity, object)
        """

class DummyComponent:
    """This component type is used for component types
    in a level that can't be mapped.
    """

class PositionComponent:
    """Where an entity is, in cells. Without `pos` at (0, 0); a given vector is kept, not copied."""
    x: float
    """pos.x"""
    y: float
    """pos.y"""
    pos: Vector2
    """the Vector2 itself, in cells"""
    _pos: Vector2
    """the same as pos"""
    def __init__(self, pos: Optional[Vector2] = None) -> None: ...
    def loadFromDict(self, level: object, input: _Dict) -> None:
        """Fills the component from a dict, as level files hold it. `level` is the level that is being loaded.
        Raises KeyError for a required key that is missing, TypeError for a value of a wrong type.
        @param(level, object)
        @param(input, object)
        """
    def dumpToDict(self, level: object) -> _Dict:
        """The component as a dict, as level files hold it. `level` is the level that is being saved.
        @return(dict)
        @param(level, object)
        """

class VelocityComponent:
    """How an entity moves, in cells per second: `velocity` is steady, `impulse` is a kick that the
    `friction` uses up, by its absolute value in cells per second each second. Without vectors both
    are (0, 0); given ones are kept, not copied.
    """
    x: float
    """velocity.x"""
    y: float
    """velocity.y"""
    velocity: Vector2
    """steady motion, a Vector2"""
    impulse: Vector2
    """decaying motion, a Vector2"""
    friction: float
    """impulse lost per second, float"""
    _velocity: Vector2
    """the same as velocity"""
    _impulse: Vector2
    """the same as impulse"""
    _friction: float
    """the same as friction"""
    def __init__(
        self, velocity: Optional[Vector2] = None, impulse: Optional[Vector2] = None, friction: _Float = 2.0,
    ) -> None: ...
    def loadFromDict(self, level: object, input: _Dict) -> None:
        """Fills the component from a dict, as level files hold it. `level` is the level that is being loaded.
        Raises KeyError for a required key that is missing, TypeError for a value of a wrong type.
        @param(level, object)
        @param(input, object)
        """
    def dumpToDict(self, level: object) -> _Dict:
        """The component as a dict, as level files hold it. `level` is the level that is being saved.
        @return(dict)
        @param(level, object)
        """

class RotationComponent:
    """Which way an entity faces. Without `dir` to the east, (1, 0); a given vector is kept, not copied."""
    dir: Vector2
    """the direction, a Vector2"""
    _dir: Vector2
    """the same as dir"""
    def __init__(self, dir: Optional[Vector2] = None) -> None: ...
    def loadFromDict(self, level: object, input: _Dict) -> None:
        """Fills the component from a dict, as level files hold it. `level` is the level that is being loaded.
        Raises KeyError for a required key that is missing, TypeError for a value of a wrong type.
        @param(level, object)
        @param(input, object)
        """
    def dumpToDict(self, level: object) -> _Dict:
        """The component as a dict, as level files hold it. `level` is the level that is being saved.
        @return(dict)
        @param(level, object)
        """

class CollisionComponent:
    """The circle with which an entity collides, its `radius` in cells. A trigger reports collisions
    without blocking. A mover ignores bodies that have one of its `ignoreFlags` among their
    `hasFlags`. Given lists are kept, not copied; all components made without a list share one.
    """
    radius: float
    """radius of the circle in cells, float"""
    isOnlyTrigger: bool
    """whether the body reports collisions without blocking"""
    hasFlags: Optional[List[Any]]
    """list of the flags of this body"""
    ignoreFlags: Optional[List[Any]]
    """list of the flags of other bodies that this one ignores"""
    _radius: float
    """the same as radius"""
    _isOnlyTrigger: int
    """isOnlyTrigger as 0 or 1"""
    _hasFlags: Optional[List[Any]]
    """the same as hasFlags"""
    _ignoreFlags: Optional[List[Any]]
    """the same as ignoreFlags"""
    def __init__(
        self, radius: _Float = 0.25, isOnlyTrigger: bool = False, hasFlags: Optional[List[Any]] = [],
        ignoreFlags: Optional[List[Any]] = [],
    ) -> None: ...
    def loadFromDict(self, level: object, input: _Dict) -> None:
        """Fills the component from a dict, as level files hold it. `level` is the level that is being loaded.
        Raises KeyError for a required key that is missing, TypeError for a value of a wrong type.
        @param(level, object)
        @param(input, object)
        """
    def dumpToDict(self, level: object) -> _Dict:
        """The component as a dict, as level files hold it. `level` is the level that is being saved.
        @return(dict)
        @param(level, object)
        """

class SpriteAnimation:
    """Which frames of a sprite sheet an animation shows, and how.

    It has `frameCount` steps of `directions` adjacent frames each, from frame `startFrame` on; a step's
    frames show the sprite from all around. `speed` is the part of the whole animation that passes in a
    second; at the end it starts again or, with `oscillate`, runs back. With `directions` below 1 the
    sprite is always drawn as seen from its front.
    """
    def __init__(
        self, name: str, frameCount: _Int, oscillate: bool, speed: _Float, startFrame: _Int, directions: _Int,
    ) -> None: ...

class Sprite:
    """A sprite can be used in an entity inside a level.
    It contains information about animations and directional frames
    """
    @property
    def texture(self) -> Texture:
        """the sheet, a Texture: columns and rows of equal frames, counted row by row. 0 of them raise
        ZeroDivisionError in the constructor, a negative number ValueError
        """
    @property
    def width(self) -> int:
        """width of a frame in pixels, int. What is left over at the right of the sheet
        belongs to no frame
        """
    @property
    def height(self) -> int:
        """height of a frame in pixels, int. What is left over at the bottom of the
        sheet belongs to no frame
        """
    @property
    def animations(self) -> Dict[str, SpriteAnimation]:
        """dict from name to SpriteAnimation, in the order given to the constructor; of animations with the same
        name the last one counts
        """
    def __init__(
        self, texture: Texture, xFrames: _Int, yFrames: _Int, spriteAnimations: List[SpriteAnimation],
    ) -> None: ...

class SpriteComponent:
    """A sprite can be used in an entity inside a level.
    It contains information about animations and directional frames
    """
    sprite: Optional[Sprite]
    """the Sprite or None. The constructor plays its first animation, StopIteration if it has none; a new
    sprite leaves the current animation alone
    """
    shadeless: bool
    """whether fog leaves the sprite alone"""
    blendMode: str
    """'add' or 'alpha'; anything but 'add' selects plain blending"""
    zOffset: float
    """how far down the sprite is moved, in halves of its unscaled height, float"""
    scale: float
    """size factor, float"""
    currentAnimation: Optional[SpriteAnimation]
    """the SpriteAnimation that plays, or None. A new one starts at the position of the old one; the same
    one again changes nothing. With None the frame numbers and the speed are 0, the directions 1.
    """
    currentAnimationKey: str
    """name of the current animation in the sprite's animations. Reading raises StopIteration if it is not
    among them; setting a name that is not there raises KeyError.
    """
    animationPercentage: float
    """position in the animation, from 0 to below 1, float"""
    _sprite: Optional[Sprite]
    """the same as sprite"""
    _shadeless: bool
    """the same as shadeless"""
    _blendMode: int
    """BLENDMODE_BLEND or, for light, BLENDMODE_ADD, int"""
    _zOffset: float
    """the same as zOffset"""
    _scale: float
    """the same as scale"""
    _dist: float
    """distance to the camera in cells, written by the renderer in each frame, float"""
    _currentAnimation: Optional[SpriteAnimation]
    """the animation alone, without what goes with it"""
    _animationPercentage: float
    """the same as animationPercentage"""
    _currentMinFrame: int
    """number of the animation's first frame, int"""
    _currentMaxFrame: int
    """the first frame plus the number of steps, int"""
    _currentDirections: int
    """viewing directions of each step, int"""
    _animationSpeed: float
    """part of the animation per second; negative while it runs back, float"""
    _angleToCam: float
    """which side faces the camera, in turns, written by the renderer in each frame, float"""
    def __init__(
        self, sprite: Optional[Sprite] = None, shadeless: bool = False, zOffset: _Float = 0.0, scale: _Float = 1.0,
        blendMode: _Int = 0,
    ) -> None: ...
    def loadFromDict(self, level: Level, input: _Dict) -> None:
        """Fills the component from a dict, as level files hold it. `level` is the level that is being loaded;
        'sprite' is an index into its sprites: IndexError if there is none such, KeyError without that key or
        for an animation that the sprite has not.
        @param(level, object)
        @param(input, object)
        """
    def dumpToDict(self, level: Level) -> _Dict:
        """The component as a dict, as level files hold it. `level` is the level that is being saved;
        ValueError if it does not hold the sprite.
        @return(dict)
        @param(level, object)
        """

class Level(Resource):
    """A level resource.

    Level() is an empty room of 30 by 30 cells with walls around it, all of one checkered texture.
    Level(filename) reads two files, the grid `filename` and its description `filename` + '.json', and the
    pictures that the description names; relative names start from the folder `assetsPath`, or else from that
    of `filename`. Raises LevelFormatException for an invalid description, OSError for a file that cannot be
    read, KeyError for a key that a sprite lacks. Entities that cannot be loaded are only reported on standard
    error. docs/level-files.md tells all that the files may hold.

    Some steps print lines: Level() a map of itself, an unknown component its name, saveFile the names of its
    files. contextlib.redirect_stdout keeps them quiet.
    """
    fogDensity: int
    """fog on walls and sprites per cell of distance, where 255 is solid, int"""
    groundFogDensity: int
    """ground fog per cell of distance, where 255 is solid; 0 is none, int"""
    fogColor: Tuple[int, int, int]
    """color of the fog, (r, g, b). A component above 255 runs into its neighbour. A color that does not
    fit 32 bits is kept, but cannot be drawn: the renderer reports OverflowError.
    """
    groundFogColor: Tuple[int, int, int]
    """color of the ground fog, (r, g, b), like fogColor"""
    _textures: List[Texture]
    """list of the textures of the cells, by texture index"""
    _sprites: List[Sprite]
    """list of the sprites, by the index that level files use"""
    _entities: List[Entity]
    """list of the entities"""
    _collisionBodies: List[Any]
    """list for scripts; the engine does not use it"""
    _assetsPath: Optional[str]
    """folder that relative paths of assets start from, str or None"""
    @property
    def metadata(self) -> _Dict:
        """dict of the content of the level's JSON description"""
    @property
    def width(self) -> int:
        """width in cells, int"""
    @property
    def height(self) -> int:
        """height in cells, int"""
    @property
    def textures(self) -> List[Texture]:
        """list of the textures of the cells, by texture index. The renderer draws those that were loaded with
        the level, also when they are painted anew, but none that is appended or put in their place later
        """
    @property
    def sprites(self) -> List[Sprite]:
        """list of the sprites, by the index that level files use"""
    def __init__(self, filename: Optional[str] = None, assetsPath: Optional[str] = None) -> None: ...
    def getSize(self) -> Tuple[int, int]:
        """Returns the size of the level in blocks.
        @return((int, int))
        """
    def getBlock(self, x: _Int, y: _Int) -> int:
        """The block type of a cell; IndexError outside of the level.
        @param(x, int)
        @param(y, int)
        @return(int)
        """
    def setBlock(self, blockType: _Int, x: _Int, y: _Int) -> None:
        """Sets the block type of a cell, one of the BLOCK_ constants, of which the low 8 bits are stored.
        Raises IndexError outside of the level.
        @param(blockType, int)
        @param(x, int)
        @param(y, int)
        """
    def getTextureIndex(self, cardinalDirection: _Int, x: _Int, y: _Int) -> int:
        """The texture index of a side of a cell; `cardinalDirection` is one of the TEXTURE_ constants, or 0
        for the block type. Raises IndexError outside of the level and for another direction.
        @param(cardinalDirection, int)
        @param(x, int)
        @param(y, int)
        @return(int)
        """
    def setTextureIndex(self, textureIndex: _Int, cardinalDirection: _Int, x: _Int, y: _Int) -> None:
        """Sets the texture index of a side of a cell, of which the low 8 bits are stored; 255 on a floor or
        ceiling is no texture. `cardinalDirection` is one of the TEXTURE_ constants, or 0 for the block type.
        Raises IndexError outside of the level and for another direction.
        @param(textureIndex, int)
        @param(cardinalDirection, int)
        @param(x, int)
        @param(y, int)
        """
    def getTexture(self, cardinalDirection: _Int, x: _Int, y: _Int) -> Optional[Texture]:
        """The texture of a side of a cell, or None where the level has no texture of that index. Raises
        IndexError outside of the level and for another direction.
        @return(Texture or None)
        @param(cardinalDirection, int)
        @param(x, int)
        @param(y, int)
        """
    def printLevel(self) -> None:
        """Prints a map of the blocks; IndexError for a block that is no block type."""
    def saveFile(self, filename: str) -> None:
        """Saves the content of the level as LVL file
                (thus, the file name should end with '.lvl')

        The metadata goes to `filename` + '.json', with the entities brought up to date, and the grid to
        `filename`, both in place. Lists and fog that a script changed are not in the metadata. Raises
        ValueError, before anything is written, when the metadata is of another size than the grid.
        @param(filename, str)
        """
    def addEntity(self, entity: Entity) -> None:
        """Appends an entity; the metadata learn of it when the level is saved.
        @param(entity, Entity or None)
        """
    def removeEntity(self, entity: Entity) -> None:
        """Removes an entity; ValueError if it is not in the level.
        @param(entity, Entity or None)
        """
    def removeAllEntities(self) -> None:
        """Removes all entities."""
    def addEntityFromJson(self, entity: _Dict) -> Entity:
        """Adds an entity from its dict in a level file, to the metadata as well. Raises KeyError when the
        metadata have no 'entities'.
        @return(Entity)
        @param(entity, dict)
        """
    def removeEntityFromJson(self, entity: Entity) -> None:
        """Removes an entity and, at the same place, its dict in the metadata. Raises ValueError if it is not
        in the level, which then is unchanged, KeyError or IndexError if the metadata do not have it.
        @param(entity, Entity or None)
        """
    def syncEntitiesFromEcs(self, ecs: Ecs) -> None:
        """Replaces the level's entities by those of the Ecs; they are shared, not copied.
        @param(ecs, Ecs or None)
        """
    def syncEntitiesToEcs(self, ecs: Ecs) -> None:
        """Replaces the entities of the Ecs by the level's; they are shared, not copied.
        @param(ecs, Ecs or None)
        """
    def getEntities(self, *args: type) -> List[Entity]:
        """Without arguments the live list of all entities; with component types, a new list of the entities
        that have all of them.
        @return(list)
        """
    def createComponent(self, componentName: str, component: _Dict) -> Any:
        """Creates a component from its name and its dict in a level file. For an unknown name a subclass of
        DummyComponent is made and registered, which keeps the data.
        @param(componentName, str)
        @param(component, dict)
        @return(object)
        """
    def _loadFromFile(self, filename: str) -> None:
        """Loads the level `filename`, its description `filename` + '.json' first; meant for a new level, since
        assets and entities join those that are there. A grid file that is too short is filled up with empty
        cells, the surplus of a longer one is ignored. Raises LevelFormatException for an invalid description,
        OSError for a file that cannot be read, OverflowError for a grid of negative size or above 2 GiB.
        Entities that cannot be loaded are reported on standard error.
        @param(filename, str)
        """
    def _loadMetadata(self, filename: str, header: str) -> None:
        """Replaces the metadata by the JSON text `header`; the grid stays until `_loadFromFile` replaces it.
        Raises LevelFormatException, with `filename` in it, for an invalid description.
        @param(filename, str)
        @param(header, str)
        """
    def _loadAssets(self) -> None:
        """Loads the sky, the textures and the sprites that the metadata names. What was loaded before a file that
        cannot be loaded stays.
        """
    def _convertPath(self, path: str) -> str:
        """The path of an asset: a relative one starts from `_assetsPath`.
        @return(str)
        @param(path, str)
        """
    def _loadFromDict(self, component: object, input: _Dict) -> None:
        """Stores the items of `input` as attributes, for components without a method loadFromDict.
        @param(component, object)
        @param(input, dict)
        """
    def _dumpToDict(self, obj: object) -> Any:
        """Plain values from the attributes of an object, for JSON. Names with a leading underscore are left
        out, other iterables than str become lists. Raises RecursionError for objects in a circle.
        @param(obj, object)
        @return(object)
        """
    def _updateEntityMetadata(self) -> None:
        """Makes metadata['entities'] anew from the entities."""

class Renderer(AbstractSystem):
    """The abstract base class of all renderers.

    A renderer draws into its target, a Texture of the size given to Engine.init; several renderers
    may share one. Further arguments are the component types that the renderer is interested in.
    """
    def __init__(self, target: Optional[Texture], *args: type) -> None: ...
    def getTarget(self) -> Optional[Texture]:
        """The texture that this renderer draws into.
        @return(Texture or None)
        """
    def render(self) -> None:
        """Draws one frame. Does nothing here; it should be overwritten by deriving classes."""
    def update(self, timeStep: float) -> None:
        """Calls `_updateEntity` for each member, then `render`. `timeStep` is in seconds.
        @param(timeStep, float)
        """

class Camera:
    """The point of view of a RaycastingRenderer: a position in cells, a direction, a horizontal field
    of view in whole degrees, a pitch in screen rows (positive looks up: the horizon moves down) and a
    ratio: a wall at distance d is 2 * height / ratio / d rows high. Move the camera by changing the
    coordinates of `pos` and `dir`; the vectors themselves stay.
    """
    fov: int
    """horizontal field of view in degrees, int"""
    pitch: int
    """rows that the horizon is shifted down, int"""
    ratio: float
    """divides the height of the screen in all scaling, float"""
    @property
    def pos(self) -> Vector2:
        """viewpoint in cells, a Vector2"""
    @property
    def dir(self) -> Vector2:
        """direction of the view, a Vector2; each frame makes it a unit vector"""
    def __init__(self, pos: Vector2, dir: Vector2, fov: _Int, pitch: _Int, ratio: _Float = 1.6) -> None: ...

class RaycastingRenderer(Renderer):
    """Renders 2.5D levels using the raycasting technique"""
    @property
    def level(self) -> Level:
        """the level that is drawn"""
    def __init__(self, target: Texture, level: Level) -> None: ...
    def render(self) -> None:
        """Draws one frame: sky, walls, floors and ceilings, sprites. Rows that the camera's pitch moves off the
        screen are not drawn; a camera outside the grid sees no walls. What goes wrong inside one of the
        passes is reported on standard error, and the frame goes on.
        """
    def getCamera(self) -> Camera:
        """The camera of this renderer.
        @return(Camera or None)
        """
    def _setFlashlight(self, flashlight: Optional[Texture]) -> None:
        """Sets the mask of light on walls, stretched over the width of the picture; None switches it off.
        @param(flashlight, Texture or None)
        """
    def _getKernels(self) -> List[str]:
        """The vector units of this machine that pixels can be drawn with, as names, the best one first; the last
        name is that of the plain loops. All draw the same pixels.
        @return([str])
        """
    def _setKernels(self, name: str) -> None:
        """Draws with the vector unit of that name from now on; ValueError for a name that _getKernels does not
        tell. A new renderer takes the best one.
        @param(name, str)
        """
    def castRay(self, pos: Vector2, dir: Vector2) -> Optional[Vector2]:
        """The point on the wall that a ray from `pos` in the direction `dir` hits; None if the ray leaves the
        level.
        @param(pos, Vector2)
        @param(dir, Vector2)
        @return(Vector2 or None)
        """
    def getEntityAtScreenCoords(self, x: _Int, y: _Int) -> Optional[Entity]:
        """The nearest entity of the last frame at a pixel of the target, or None, also when `x` is not on the
        screen. Entities count as squares of the unscaled size, transparent parts included.
        @return(Entity or None)
        @param(x, int)
        @param(y, int)
        """
    def getWorldCellByScreenCoords(self, x: _Int, y: _Int) -> Optional[Tuple[int, int, int]]:
        """What the last frame shows at a pixel of the target, as (face, cellX, cellY): TEXTURE_FLOOR,
        TEXTURE_CEILING or the face of a wall, and the cell. None when `x` is not on the screen, and on the
        horizon of a column without a wall. Raises ZeroDivisionError when the camera's ratio is 0.
        @return((int, int, int) or None)
        @param(x, int)
        @param(y, int)
        """
    def getWorldPosByScreenCoords(self, x: _Int, y: _Int) -> Optional[Tuple[int, float, float]]:
        """As getWorldCellByScreenCoords, but on floors and ceilings the coordinates are the exact point.
        @return((int, float, float), for a wall (int, int, int), or None)
        @param(x, int)
        @param(y, int)
        """

class CollisionBodySystem(AbstractSystem):
    """Holds the bodies: all entities with a PositionComponent and a CollisionComponent."""
    def __init__(self) -> None: ...
    def update(self, timeStep: float) -> None:
        """Does nothing: bodies need no work per frame.
        @param(timeStep, float)
        """
    def traceEntities(self, pos: Vector2, dir: Vector2, maxDist: _Float) -> List[Tuple[Entity, float]]:
        """The bodies that a ray meets nearer than `maxDist` cells, as a list of (entity, dist), nearest first.
        From inside a body the distance is that of the exit. `dir` is made a unit vector, in place.

        Walls are not considered: to be sure that an entity is visible, use RaycastingRenderer.castRay too,
        or give the distance that it tells as `maxDist`.
        @return([(Entity, float)])
        @param(pos, Vector2)
        @param(dir, Vector2)
        @param(maxDist, float)
        """

class MovementSystem(AbstractSystem):
    """Moves all entities with a PositionComponent and a VelocityComponent. Those with a CollisionComponent are
    kept out of bodies and of the walls of `level`, and every collision fires a CollisionEvent.

    The system brings a CollisionBodySystem of its own into the Ecs that it is added to. Without a level
    there are no walls, without an engine no events.
    """
    _level: Optional[Level]
    """the level whose blocks are the walls"""
    _cbs: CollisionBodySystem
    """the collision bodies, a CollisionBodySystem"""
    @property
    def collisionBodySystem(self) -> CollisionBodySystem:
        """the collision bodies, a CollisionBodySystem"""
    def __init__(self, level: Optional[Level]) -> None: ...
    def update(self, timeStep: float) -> None:
        """Moves all members; `timeStep` is in seconds.
        @param(timeStep, float)
        """
    def _updateEntity(self, entity: Entity, timeStep: float) -> None:
        """Moves one entity by its velocity and impulse; `timeStep` is in seconds.
        @param(entity, object)
        @param(timeStep, float)
        """
    def _setEcs(self, ecs: Optional[Ecs]) -> None:
        """Takes the collision bodies along from the old Ecs to the new one.
        @param(ecs, Ecs or None)
        """
    def _setEngine(self, engine: Optional[Engine]) -> None:
        """Tells the collision bodies, too.
        @param(engine, Engine or None)
        """

class UITheme:
    """The look of the widgets, from a JSON file: "tileset" is an image, "widgets" the pieces in it,
    "fonts" and "colors" have names that the widgets look up. Files are relative to the theme file.

    A missing key raises KeyError, a color that is no hexadecimal number ValueError; failures to read
    the files pass through. What widgets look up is missed only when they do: all text needs a font
    "aileron", text without a color of its own the color "fontColor", a filled background "background",
    and each widget its pieces. docs/theme-file.md tells them all.
    """
    @property
    def widgets(self) -> _Dict:
        """dict of the pieces in the tileset, as the file holds them"""
    def __init__(self, filename: str) -> None: ...
    def getFont(self, name: str) -> Font:
        """The font of that name; KeyError if the theme lacks it.
        @return(Font)
        @param(name, str)
        """
    def getColor(self, name: str) -> Tuple[int, int, int, int]:
        """Returns the RGBA color as a tuple
        @return((int, int, int, int))
        @param(name, str)
        """
    def getIntColor(self, name: str) -> int:
        """Returns the RGB color as an int with one byte per color
        @return(int)
        @param(name, str)
        """
    def _convertRgbaToIntColor(self, color: _Color) -> int:
        """The color as a word 0xAARRGGBB, opaque without alpha.
        @return(int)
        @param(color, (r, g, b) or (r, g, b, a))
        """

class UIRenderer(Renderer):
    """A UI render renders UI elements like text and buttons."""
    widget: Union[UIAnchoredContainer, Any]  # any widget may be the root; at first it is a UIAnchoredContainer
    """root of the widget tree, a UIAnchoredContainer at first; assigning attaches the whole new tree"""
    @property
    def theme(self) -> Optional[UITheme]:
        """the UITheme of all widgets of this renderer, or None"""
    def __init__(self, target: Optional[Texture], fillBackground: bool, theme: Optional[UITheme]) -> None: ...
    def getSize(self) -> Tuple[int, int]:
        """Returns the size of the render target
        @return((int, int)) width and height in pixels
        """
    def render(self) -> None:
        """Renders a single frame onto the render target
        It lays the tree of widgets out, updates it with the mouse of the engine and draws it, over the color
        "background" of the theme if `fillBackground` is set.
        """
    def _setEngine(self, engine: Optional[Engine]) -> None:
        """Called when the renderer joins or, with None, leaves an engine: clicks and wheel steps of that engine
        go to the widgets.
        @param(engine, Engine or None)
        """
    def _onClick(self, event: MouseClickEvent) -> None:
        """Hands a click to the root widget; `event.isAlreadyHandled` then tells whether a widget took it.
        @param(event, MouseClickEvent or None)
        """
    def _onScroll(self, event: MouseWheelEvent) -> None:
        """Hands a wheel step to the root widget; `event.isAlreadyHandled` then tells whether a widget took it.
        @param(event, MouseWheelEvent or None)
        """

class UIWidget:
    """UIWidget is the abstract base class for every UI control."""
    sizePolicyX: int
    """where the width comes from: SIZE_AUTO, SIZE_FIXED or SIZE_GROW"""
    sizePolicyY: int
    """where the height comes from: SIZE_AUTO, SIZE_FIXED or SIZE_GROW"""
    width: int
    """width in pixels; set anew in each frame unless sizePolicyX is SIZE_FIXED"""
    height: int
    """height in pixels; set anew in each frame unless sizePolicyY is SIZE_FIXED"""
    horizontalAlign: int
    """ALIGN_LEFT, ALIGN_RIGHT or ALIGN_CENTER, for a vertical list"""
    verticalAlign: int
    """VALIGN_TOP, VALIGN_BOTTOM or VALIGN_MIDDLE, for a horizontal list"""
    marginLeft: int
    """room to the left in pixels"""
    marginTop: int
    """room above in pixels"""
    marginRight: int
    """room to the right in pixels"""
    marginBottom: int
    """room below in pixels"""
    isVisible: bool
    """an invisible widget draws nothing, but keeps its room and takes clicks"""
    isEnabled: bool
    """a disabled widget takes no clicks"""
    onClick: Optional[Callable[[Any], object]]
    """called with the event of a click on the widget; a callable or None"""
    userData: Any
    """any object; free for the script"""
    _x: int
    """left edge in the render target; a container sets it in each frame"""
    _y: int
    """top edge in the render target; a container sets it in each frame"""
    @property
    def isHovered(self) -> bool:
        """whether the mouse was inside at the last update"""
    def __init__(self) -> None: ...
    def setMargin(self, *args: _Int) -> None:
        """Sets all four edges, in the order of the CSS shorthand: all; top and bottom, left and right; top, left
        and right, bottom; or top, right, bottom, left. Raises ValueError for any other count of values.
        """
    def getParent(self) -> Optional[AbstractUIContainer]:
        """The container that this widget was added to, or None.
        @return(AbstractUIContainer or None)
        """
    def getRenderer(self) -> Optional[UIRenderer]:
        """The renderer that this widget is attached to, or None.
        @return(UIRenderer or None)
        """
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the widget. It should be overwritten by deriving classes in order to draw the widget's
        appearance on the render target. Call this base implementation first: it raises EngineException
        for a visible widget that is not connected to a UIRenderer.
        Nothing is to be drawn outside the clip rectangle; a negative value means that there is none.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def update(self, mouseX: int, mouseY: int, isMouseLeftPressed: bool) -> None:
        """Called once per frame, before `render`. It can be overwritten and can be used to update the
        widget's state. This base implementation tracks the mouse: it sets `isHovered` and calls
        `onDragStart`, `onDrag` and `onDragEnd`. The position is in pixels of the render target.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(isMouseLeftPressed, bool)
        """
    def onDragStart(self, mouseX: int, mouseY: int) -> None:
        """Called when the left button is down over the widget and no drag is running; override it.
        @param(mouseX, int)
        @param(mouseY, int)
        """
    def onDrag(self, mouseX: int, mouseY: int, diffX: int, diffY: int) -> None:
        """Called in every frame of a drag, wherever the mouse is; override it. `diffX` and `diffY` tell how far
        the mouse is from where the drag began.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(diffX, int)
        @param(diffY, int)
        """
    def onDragEnd(self, mouseX: int, mouseY: int) -> None:
        """Called when the button is released at the end of a drag; override it.
        @param(mouseX, int)
        @param(mouseY, int)
        """
    def isInside(self, mouseX: float, mouseY: float) -> bool:
        """Returns true if the given coordinates are inside the widget. Its edges are outside.
        @param(mouseX, float)
        @param(mouseY, float)
        @return(bool)
        """
    def _pointInRect(
        self, pointX: float, pointY: float, rectX: float, rectY: float, rectW: float, rectH: float,
    ) -> bool:
        """Whether a point is inside a rectangle. The edges are outside.
        @param(pointX, float)
        @param(pointY, float)
        @param(rectX, float)
        @param(rectY, float)
        @param(rectW, float)
        @param(rectH, float)
        @return(bool)
        """
    def _setParent(self, parent: Optional[AbstractUIContainer]) -> None:
        """Called when the widget joins a container: it takes the container's renderer. With None it keeps the
        renderer that it has.
        @param(parent, AbstractUIContainer or None)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """Called for every click on the user interface. An enabled widget under the mouse calls its `onClick`.
        @return(bool) whether the widget took the click
        @param(event, MouseClickEvent or None)
        """
    def _onScroll(self, event: MouseWheelEvent) -> Optional[bool]:
        """Called for every step of the mouse wheel.
        @return(bool) whether the widget took the event, here False
        @param(event, MouseWheelEvent or None)
        """

class AbstractUIContainer(UIWidget):
    """The abstract base class of all widgets that contain others.

    It keeps the children and passes layout, update, drawing, clicks and scrolling on to them. Classes
    that derive from it say how children are added and placed. An invisible container hides its children.
    """
    def __init__(self) -> None: ...
    def getChildren(self) -> List[UIWidget]:
        """The list of the children itself, in drawing order: the last one is on top.
        @return(list)
        """
    def removeChild(self, child: UIWidget) -> None:
        """Removes a child; nothing happens if it is not here. It keeps its parent and its renderer.
        @param(child, object)
        """
    def removeAllChildren(self) -> None:
        """Removes all children."""
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the child widgets.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def update(self, mouseX: int, mouseY: int, isMouseLeftPressed: bool) -> None:
        """Updates the child widgets.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(isMouseLeftPressed, bool)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """Offers a click to the children, the topmost first, until one takes it.
        @return(bool) whether a child took it
        @param(event, MouseClickEvent or None)
        """
    def _onScroll(self, event: MouseWheelEvent) -> Optional[bool]:
        """Offers a step of the mouse wheel to the children, the topmost first, until one takes it.
        @return(bool) True if a child took it, else None
        @param(event, MouseWheelEvent or None)
        """

class UIListContainer(AbstractUIContainer):
    """A UIListContainer can contain other UIWidget objects next to or above each other."""
    layout: int
    """direction of the list: LIST_LAYOUT_HORIZONTAL or LIST_LAYOUT_VERTICAL"""
    paddingLeft: int
    """room between the left edge and the content, in pixels"""
    paddingTop: int
    """room between the top edge and the content, in pixels"""
    paddingRight: int
    """room between the content and the right edge, in pixels"""
    paddingBottom: int
    """room between the content and the bottom edge, in pixels"""
    def __init__(self) -> None: ...
    def addChild(self, child: UIWidget) -> None:
        """Appends a child at the end of the list, on top of the others.
        @param(child, UIWidget)
        """
    def setPadding(self, *args: _Int) -> None:
        """Sets all four edges, in the order of the CSS shorthand: all; top and bottom, left and right; top, left
        and right, bottom; or top, right, bottom, left. Raises ValueError for any other count of values.
        """

class _UIAnchorWrapper:
    """Where a child of a UIAnchoredContainer is anchored."""
    def __init__(self, child: UIWidget, x: _Int, y: _Int, anchorTypeX: _Int, anchorTypeY: _Int) -> None: ...

class UIAnchoredContainer(AbstractUIContainer):
    """A UIAnchoredContainer places each child by its distance from an edge, or from the centre, of the
    container. It takes all the room that it gets.
    """
    def __init__(self) -> None: ...
    def addChild(
        self, child: UIWidget, x: _Int, y: _Int, anchorTypeX: _Int = 0, anchorTypeY: _Int = 2,
    ) -> None:
        """Adds a child on top of the others, `x` and `y` pixels from where it is anchored: inward from an edge,
        right and down from the centre (ANCHOR_CENTER). A child that is here already stays as it is.
        @param(child, UIWidget)
        @param(x, int)
        @param(y, int)
        @param(anchorTypeX=0, int)
        @param(anchorTypeY=2, int)
        """
    def removeChild(self, child: UIWidget) -> None:
        """Removes a child; nothing happens if it is not here. It keeps its parent and its renderer.
        @param(child, UIWidget or None)
        """
    def removeAllChildren(self) -> None:
        """Removes all children."""

class UIText(UIWidget):
    """A UIText can be used to display text.

    Its font is the one that the theme calls "aileron", its color, unless given, "fontColor"; KeyError if
    the theme lacks them: the color when the text is attached to a renderer, the font in the next frame.
    """
    text: str
    """the text; the same as getText and setText"""
    color: Optional[_Color]
    """color of the text, (r, g, b) or (r, g, b, a); None takes that of the theme when attached"""
    def __init__(self, text: str, color: Optional[_Color] = None) -> None: ...
    def setText(self, text: str) -> None:
        """Replaces the text. Line breaks begin new lines. Raises TypeError for anything but a str.
        @param(text, str)
        """
    def getText(self) -> str:
        """The text.
        @return(str)
        """
    def getRenderedTextSize(self) -> Tuple[int, int]:
        """Determines the size which is required for the text.
        Note that this only works if the widget is appended to a renderer.
        The widths of several lines are summed. Without a renderer the size is (0, 0).
        @return((int, int))
        """
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the text, cut off at the edges of the widget.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """

class UIImage(UIWidget):
    """A UIImage can be used to display images."""
    texture: Optional[Texture]
    """the picture; assigning one gives the widget its size"""
    alpha: int
    """opacity from 0 to 255; other values are clamped"""
    def __init__(
        self, texture: Optional[Texture], width: Optional[_Int] = None, height: Optional[_Int] = None,
    ) -> None: ...
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the picture, stretched to fill the widget; nothing without a texture. Its opacity stays set on
        the texture, for others who draw it.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """

class UIButton(UIListContainer):
    """A push button with a text label. A click calls `onClick` with a ButtonClickEvent, and the engine
    fires the same event.
    """
    text: str
    """text of the label; the same as getText and setText"""
    def __init__(self, label: str) -> None: ...
    def getText(self) -> str:
        """The text of the label.
        @return(str)
        """
    def setText(self, text: str) -> None:
        """Replaces the text of the label.
        @param(text, str)
        """
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the button and its label.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """An enabled button takes a click inside it: it calls `onClick` and fires a ButtonClickEvent.
        @return(bool) whether the button took the click
        @param(event, MouseClickEvent or None)
        """

class ButtonClickEvent(MouseClickEvent):
    """A UIButton was clicked."""
    @property
    def target(self) -> UIButton:
        """the UIButton"""
    def __init__(self, target: UIButton, x: _Int, y: _Int, mouseButton: _Int) -> None: ...

class UIPanel(UIListContainer):
    """A UIListContainer with a background and a padding of 8. An enabled panel takes the clicks on it that no
    child takes.
    """
    def __init__(self) -> None: ...
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the panel and its children.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """Offers a click to the children, then calls the panel's own `onClick` if the mouse is over it.
        @return(bool) whether a child or the panel took the click
        @param(event, MouseClickEvent or None)
        """

class UISlider(UIWidget):
    """A bar with a knob to drag and a button at each end, for an integer from `minValue` to `maxValue`. A
    click on a button changes it by 10. The engine fires a SliderValueChangedEvent for each change.
    """
    value: int
    """the value, int; what is written is clamped to the bounds"""
    percent: float
    """the value as a share of the range, 0.0 to 1.0; NaN raises ValueError. With equal bounds it reads as
    0.0, and each reading reports a ZeroDivisionError to sys.unraisablehook.
    """
    def __init__(self, value: _Int, minValue: _Int = 0, maxValue: _Int = 100, orientation: _Int = 0) -> None: ...
    def update(self, mouseX: int, mouseY: int, isMouseLeftPressed: bool) -> None:
        """Tracks the mouse over the slider and its buttons.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(isMouseLeftPressed, bool)
        """
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the slider
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def onDragStart(self, mouseX: int, mouseY: int) -> None:
        """Grabs the knob if the mouse is over it.
        @param(mouseX, int)
        @param(mouseY, int)
        """
    def onDrag(self, mouseX: int, mouseY: int, diffX: int, diffY: int) -> None:
        """Moves the grabbed knob under the mouse.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(diffX, int)
        @param(diffY, int)
        """
    def onDragEnd(self, mouseX: int, mouseY: int) -> None:
        """Lets the knob go.
        @param(mouseX, int)
        @param(mouseY, int)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """A click on a button at the end changes the value by 10.
        @return(bool) whether the slider took the click
        @param(event, MouseClickEvent or None)
        """

class SliderValueChangedEvent(Event):
    """The value of a UISlider has changed."""
    @property
    def target(self) -> UISlider:
        """the UISlider"""
    @property
    def oldValue(self) -> int:
        """value before, int"""
    @property
    def newValue(self) -> int:
        """value now, int"""
    def __init__(self, target: UISlider, oldValue: _Int, newValue: _Int) -> None: ...

class UIScrollPanel(AbstractUIContainer):
    """A UIScrollPanel shows one content widget through a viewport of fixed size, `width` by `height`. A
    scroll bar and the mouse wheel move the content up and down.

    The bar is a UISlider and fires SliderValueChangedEvents like any other: compare the `target` of an event
    with your own sliders. Where there is nothing to scroll, it reports a ZeroDivisionError in every frame.
    """
    content: UIWidget
    """the widget that is shown; assigning one replaces it"""
    scrollPosX: int
    """how far the content is moved to the left, in pixels; clamped to what the content is wider than the panel"""
    scrollPosY: int
    """how far the content is moved up, in pixels; what is written moves the scroll bar, and shows after the
    next update
    """
    paddingLeft: int
    """room between the left edge and the content, in pixels"""
    paddingTop: int
    """room between the top edge and the content, in pixels"""
    paddingRight: int
    """room between the content and the right edge, in pixels"""
    paddingBottom: int
    """room between the content and the bottom edge, in pixels"""
    wheelScrollPixels: int
    """pixels that one step of the mouse wheel scrolls"""
    def __init__(self, content: UIWidget) -> None: ...
    def setPadding(self, *args: _Int) -> None:
        """Sets all four edges, in the order of the CSS shorthand: all; top and bottom, left and right; top, left
        and right, bottom; or top, right, bottom, left. Raises ValueError for any other count of values.
        """
    def update(self, mouseX: int, mouseY: int, isMouseLeftPressed: bool) -> None:
        """Updates the content and the scroll bar, and scrolls to where the bar is.
        @param(mouseX, int)
        @param(mouseY, int)
        @param(isMouseLeftPressed, bool)
        """
    def render(self, clipX: int = -1, clipY: int = -1, clipWidth: int = -1, clipHeight: int = -1) -> None:
        """Renders the content widget.
        @param(clipX=-1, int)
        @param(clipY=-1, int)
        @param(clipWidth=-1, int)
        @param(clipHeight=-1, int)
        """
    def _onClick(self, event: MouseClickEvent) -> bool:
        """Offers a click to the scroll bar, then to the content.
        @return(bool) whether one of them took it
        @param(event, MouseClickEvent or None)
        """
    def _onScroll(self, event: MouseWheelEvent) -> Optional[bool]:
        """Offers a step of the mouse wheel to the content; if it does not take it, an enabled panel under the
        mouse scrolls by `wheelScrollPixels`.
        @return(bool) whether the content took the step or the panel scrolled
        @param(event, MouseWheelEvent or None)
        """

class Engine:
    """The window, the frame loop, input, events and tasks.

    An engine brings an Ecs for the entities and systems of the game. `init` opens the window; then either
    `run` plays the game until the user stops it, or a loop of the script's own calls `update` while
    `isRunning()` is true.

    Event subscribers, tasks, timers and joysticks are shared by all engines of the process. Without a
    window, which is before `init` and after `quit`, the methods that change the window do nothing, the
    others give (0, 0) or False, and mouse positions are not scaled.
    """
    version: ClassVar[float]
    _eventSubscribers: ClassVar[Dict[type, List[Callable[[Any], object]]]]
    _tasks: ClassVar[List[Tuple[Callable[[float, Any], object], Any]]]
    _timers: ClassVar[List[Timer]]
    _joysticks: ClassVar[List[Joystick]]
    @property
    def ecs(self) -> Ecs:
        """the Ecs of this engine"""
    @property
    def joysticks(self) -> List[Joystick]:
        """a new list of all joysticks that were ever plugged in"""
    def __init__(self) -> None: ...
    def init(
        self, title: str, size: Tuple[_Int, _Int], fullscreen: bool = False, show: bool = True,
        resizeable: bool = False, windowid: _Int = -1, icon: Optional[str] = None, captureMouse: bool = False,
        audioChannels: _Int = 32, killWithEscapeKey: bool = True,
    ) -> None:
        """Opens the window and makes the engine ready to run.

        `size` is the size of the picture in pixels; it stays, and is stretched over the window when that
        changes. With `fullscreen` the first frame enters fullscreen. `show` tells whether the window is
        visible, `resizeable` whether the user can change its size. `icon` is the name of an image file.
        `captureMouse` hides the mouse and keeps it in the window, see `captureMouse`. `audioChannels` is how
        many sounds can play at a time, at most 65536. With `killWithEscapeKey` the Escape key stops the
        engine. Windows of others are not supported: a `windowid` other than -1 always fails.

        An engine that has a window already gets a new one in its place. If no window or renderer can be
        created, EngineSdlException is raised, and the engine does not run. Without a display the engine runs
        unseen; it says so once on standard error, unless SDL_VIDEODRIVER in the environment asks for it.
        @param(title, str)
        @param(size, (int, int))
        @param(fullscreen=False, bool)
        @param(show=True, bool)
        @param(resizeable=False, bool)
        @param(windowid=-1, int)
        @param(icon=None, str or None)
        @param(captureMouse=False, bool)
        @param(audioChannels=32, int)
        @param(killWithEscapeKey=True, bool)
        """
    def _ensureInit(self) -> None:
        """Raises EngineException unless the engine is running."""
    def isRunning(self) -> bool:
        """Whether the engine runs: from `init` until the user stops it, or until `quit`.
        @return(bool)
        """
    def update(self) -> None:
        """Plays one frame: input, tasks, the systems, and the picture on the screen.

        Only to be called explicitly with a custom main loop; `run` calls it implicitly. Raises
        EngineException unless the engine is running. Of a renderer's target that has not the size of the
        picture only the common part is shown; a renderer without a target is passed over. TypeError if a
        renderer's `getTarget` gives something else.
        """
    def run(self, maxFps: _Float = 60) -> None:
        """Plays frames, at most `maxFps` of them per second, until the engine stops, and cancels the timers
        that are still waiting. Raises ZeroDivisionError for 0 frames per second.
        @param(maxFps=60, float)
        """
    def quit(self) -> None:
        """After calling quit, no more update or render calls are possible.

        Closes the window and ends SDL. This ends all engines of the process, and their joysticks. A frame in
        progress goes on without a window. `init` starts video and joysticks anew, where SDL can do so, but
        no sound.
        """
    def getFps(self) -> float:
        """Frames per second, according to the length of the last frame alone.
        @return(float)
        """
    def getTimeStep(self) -> float:
        """Length of the last frame in seconds.
        @return(float)
        """
    def subscribeEvent(self, eventType: Type[_T], eventHandler: Callable[[_T], object]) -> None:
        """Lets `eventHandler(event)` be called for events of exactly that type, after the handlers subscribed
        before. What is subscribed twice is called twice.
        @param(eventType, type)
        @param(eventHandler, callable)
        """
    def unsubscribeEvent(self, eventType: Type[_T], eventHandler: Callable[[_T], object]) -> None:
        """Takes back one subscription; nothing happens if there is none.
        @param(eventType, type)
        @param(eventHandler, callable)
        """
    def fireEvent(self, evt: object, evtType: Optional[type] = None) -> None:
        """Calls the handlers of the type `evtType`, by default the exact type of the event, in the order of
        their subscription. An exception from a handler leaves at once.
        @param(evt, object)
        @param(evtType=None, type or None)
        """
    def getKeyName(self, keycode: _Int) -> str:
        """The name of a key; empty for a key without one.
        @param(keycode, int)
        @return(str)
        """
    def isKeyPressed(self, keycode: _Int) -> int:
        """1 if the key, one of the KEY_* constants, is held down, else 0.
        @param(keycode, int)
        @return(int)
        """
    def isMouseButtonPressed(self, button: _Int) -> bool:
        """Whether the button, one of the MOUSE_* constants, is held down.
        @param(button, int)
        @return(bool)
        """
    def getMouseDist(self) -> Tuple[int, int]:
        """How far the last motion of the mouse in this frame went, in pixels of the window.
        @return((int, int))
        """
    def getMousePos(self) -> Tuple[int, int]:
        """The position of the mouse in pixels of the picture, whatever the size of the window.
        @return((int, int))
        """
    def captureMouse(self, capture: bool) -> None:
        """Hides the mouse and keeps it in the window, for looking around by `getMouseDist`, or sets it free.
        @param(capture, bool)
        """
    def isMouseCaptured(self) -> bool:
        """Whether the mouse is captured.
        @return(bool)
        """
    def addTask(self, task: Callable[[float, Any], object], onDone: Any = None) -> None:
        """Lets `task(timeStep, onDone)` be called once in every frame, until it gives a true result.
        `timeStep` is in seconds. The engine does not use `onDone`, it is there for the task.
        @param(task, callable)
        @param(onDone=None, object)
        """
    def addTaskAfter(self, delaySeconds: float, task: Callable[[float, Any], object], onDone: Any = None) -> None:
        """Adds a task after a delay, at once if that is not above 0. The end of `run` cancels what still waits.
        @param(delaySeconds, number)
        @param(task, callable)
        @param(onDone=None, object)
        """
    def setWindowTitle(self, title: str) -> None:
        """Changes the title of the window.
        @param(title, str)
        """
    def getWindowPos(self) -> Tuple[int, int]:
        """Position of the window on the desktop.
        @return((int, int))
        """
    def setWindowPos(self, pos: Tuple[_Int, _Int]) -> None:
        """Moves the window on the desktop.
        @param(pos, (int, int))
        """
    def getWindowSize(self) -> Tuple[int, int]:
        """Width and height of the window.
        @return((int, int))
        """
    def setWindowSize(self, size: Tuple[_Int, _Int]) -> None:
        """Changes width and height of the window. The picture keeps its size and is stretched. Nothing happens
        for a size outside of 1 to 16384.
        @param(size, (int, int))
        """
    def setWindowIcon(self, filename: str) -> None:
        """Takes the icon of the window from an image file; nothing happens if that cannot be loaded.
        @param(filename, str)
        """
    def setFullscreen(self, fullscreen: bool) -> None:
        """Enters or leaves fullscreen; fires no event.
        @param(fullscreen, bool)
        """
    def isFullscreen(self) -> bool:
        """Whether the window is in fullscreen.
        @return(bool)
        """
    def toggleFullscreen(self) -> None:
        """Enters fullscreen in the size of the desktop, or leaves it and restores position and size of the
        window. Fires a FullscreenEvent.
        """
    def saveScreenshot(self, filename: str) -> None:
        """Writes what the window shows, in the size of the window, as a PNG file, whatever its name; that
        should therefore end with ".png". A failed write raises nothing.
        @param(filename, str)
        """
