"""The demo's level: an abandoned abbey around a court, with a forge, a library, a cellar and a hedge garden."""

import json

# Lower-case letters are open cells of a kind of room, the triangles are half walls, upper-case letters are walls with
# a picture of their own, '#' is a wall that looks like the room from which it is seen.
MAP = """
#BBBBBBB###W#W#W#W#W############
#lllllll#◤ssssaaassss◥##◤fffff◥#
BlllllllBsssssaaasssss##fffffff#
BlBBlBBlBsssssaaasssss##ff◢#◣ff#
BlllllllBsssssaaasssss##ff###ff#
BlBBlBBlBsssssaaasssss##ff◥O◤ff#
BlllllllBsssssaaasssss##fffffff#
#lllllll#sssssaaasssssccfffffff#
#◣lllll◢#◣ssssaaassss◢##◣fffff◢#
####h#########aaa##########c####
#◤hhrhh◥#◤yyyyyyyyyyyy◥#◤ccccc◥#
#hhrrrhh#yyyyyyyyyyyyyyccccccccD
#hhrrrhhhyyyyyyyyyyyyyy#◣cccccc#
#hhrrrhh#yyy◢HHggHH◣yyy##◣ccccc#
#hhrrrhh#yyyHggggggHyyy###◣cccc#
DhhrrrhhDyyyggggggggyyyn##◣cccc#
DhhrrrhhDyyyggggggggyyyn##◤cccc#
#hhrrrhh#yyyHggggggHyyy###◤kkkk#
#hhrrrhh#yyy◥HHggHH◤yyy##◤kkkkk#
#hhrrrhhhyyyyyyyyyyyyyy#◤kkkkkk#
#hhrrrhh#yyyyyyyyyyyyyy#kkkkkkk#
#◣hhrhh◢#◣yyyyyyyyyyyy◢#◣kkkkk◢#
####p##########yy###########k###
#◤ppppppp◥#◤gggggggggggggggggg◥#
#ppppppppp#g◢HH◣ggg◢HHHHHH◣gggg#
#pp#ppp#pp#gHggHgggHggggggHgg◢◣#
#pp#ppp#pp#gHggggggHgg◢◣ggHggHH#
#pppppppppgggggggggggg◥◤ggHgg◥◤#
#ppppppppp#gHggHgggHggggggHgggg#
#ppppppppp#g◥HH◤ggg◥HHHHHH◤gggg#
#◣ppppppp◢#◣gggggggggggggggggg◢#
################################
""".split()

NONE = "none"

# What a kind of room is made of: floor, ceiling, wall.
ROOMS = {
    "a": ("carpet", "vault", "stone"),  # the chapel's aisle
    "s": ("flagstones", "vault", "stone"),
    "c": ("flagstones", "vault", "stone"),  # corridors
    "l": ("floorboards", "coffers", "panelling"),
    "h": ("tiles", "coffers", "timber_frame"),
    "r": ("carpet", "coffers", "timber_frame"),
    "f": ("tread_plate", "tread_plate", "metal"),
    "k": ("cobbles", "rafters", "bricks"),
    "p": ("floorboards", "rafters", "planks"),
    "n": ("cobbles", "vault", "mossy_stone"),  # a niche
    "y": ("cobbles", NONE, "mossy_stone"),
    "g": ("grass", NONE, "mossy_stone"),
}

# Walls with a picture: its name, and the rooms from which it shows; elsewhere they are plain.
PICTURES = {
    "B": ("bookshelf", "l"),
    "W": ("stained_glass", "as"),
    "D": ("door", "hrcyk"),
    "O": ("furnace", "f"),
    "H": ("hedge", "yg"),
}

TEXTURES = ["stone", "mossy_stone", "bricks", "planks", "timber_frame", "panelling", "metal", "bookshelf",
            "stained_glass", "door", "furnace", "hedge", "cobbles", "flagstones", "tiles", "floorboards", "grass",
            "carpet", "tread_plate", "coffers", "vault", "rafters"]

# Block numbers and the solid edges of each; an open edge lets one look at the slanted face.
BLOCKS = {"◤": (2, "NW"), "◥": (3, "NE"), "◣": (4, "SW"), "◢": (5, "SE")}
SQUARE, EMPTY, NO_TEXTURE = 1, 0, 255
FACES = (("N", 0, -1), ("E", 1, 0), ("S", 0, 1), ("W", -1, 0))  # in the order of a cell's bytes

SPRITES = {
    "automaton": dict(xFrames=8, yFrames=6, animations={
        "walk": dict(frames=6, speed=1.0, startFrame=0, directions=8),
        "stand": dict(frames=1, speed=0.0, startFrame=0, directions=8)}),
    "gem": dict(xFrames=8, animations={"turn": dict(frames=8, speed=0.9)}),
    "brazier": dict(xFrames=6, animations={"burn": dict(frames=6, speed=1.7, oscillate=True)}),
    "halo": dict(xFrames=4, animations={"breathe": dict(frames=4, speed=1.3, oscillate=True)}),
    "wisp": dict(xFrames=4, animations={"breathe": dict(frames=4, speed=0.7, oscillate=True)}),
    "barrel": {}, "column": {}, "tree": {}, "shrub": {},
}
_SPRITE_NAMES = list(SPRITES)

PLAYER_ID = 1


def _at(x, y):
    return {"x": x, "y": y}


def _sprite(name, scale, raise_by=0.0, **more):
    """A sprite that stands on the floor, or so many half wall heights above it."""
    return dict(sprite=_SPRITE_NAMES.index(name), scale=scale, zOffset=round(1.0 - scale - raise_by, 3), **more)


def _thing(name, x, y, scale, radius):
    return dict(position=_at(x, y), collision=dict(radius=radius), sprite=_sprite(name, scale))


def _fire(x, y):
    """A brazier and the light around it. The halo comes second: of things equally far, the later is drawn over."""
    glow = _sprite("halo", 1.3, blendMode="add", shadeless=True)
    glow["zOffset"] = 0.25
    return [dict(position=_at(x, y), collision=dict(radius=0.2, hasFlags=["fire"]),
                 sprite=_sprite("brazier", 0.62, shadeless=True)),
            dict(position=_at(x, y), sprite=glow)]


def _wisp(x, y):
    return dict(position=_at(x, y), sprite=_sprite("wisp", 0.5, 0.5, blendMode="add", shadeless=True))


def _gem(x, y):
    return dict(position=_at(x, y), collision=dict(radius=0.3, isOnlyTrigger=True, hasFlags=["gem"]),
                sprite=_sprite("gem", 0.27, 0.3))


def _warden(x, y, dx, dy, speed=0.0):
    """An automaton that looks along (dx, dy), and walks there if it has a speed."""
    warden = dict(position=_at(x, y), rotation=_at(dx, dy),
                  collision=dict(radius=0.3, hasFlags=["warden"], ignoreFlags=["gem"]),
                  sprite=_sprite("automaton", 0.74, currentAnimation="walk" if speed else "stand"))
    if speed:
        warden["velocity"] = dict(x=dx * speed, y=dy * speed, friction=2.0)
    return warden


_FIRES = [(10.6, 11.6), (21.4, 11.6), (10.6, 20.4), (21.4, 20.4), (2.0, 11.5), (7.0, 20.5), (10.2, 2.0), (20.8, 2.0),
          (25.5, 20.8), (14.5, 23.4), (17.5, 23.4)]
_COLUMNS = [(12.0, 3.0), (12.0, 5.0), (12.0, 7.0), (19.0, 3.0), (19.0, 5.0), (19.0, 7.0),
            (2.5, 14.0), (2.5, 16.0), (2.5, 18.0), (6.5, 14.0), (6.5, 16.0), (6.5, 18.0)]
_TREES = [(16.0, 16.0, 1.5), (24.0, 28.6, 1.3), (12.0, 30.3, 1.2), (29.6, 24.0, 1.25)]
_SHRUBS = [(13.4, 10.5), (17.6, 10.5), (9.5, 14.4), (9.5, 17.6), (22.5, 14.4), (22.5, 17.6), (5.5, 1.6), (2.5, 1.6),
           (25.6, 10.8), (11.4, 26.5), (11.4, 28.5)]
_BARRELS = [(29.5, 18.4), (30.3, 18.6), (30.2, 19.4), (30.4, 21.4), (29.6, 21.5), (1.7, 26.6), (1.6, 27.4),
            (8.3, 24.6), (9.2, 25.4), (9.3, 24.5), (2.4, 24.4), (30.3, 7.6)]
_WISPS = [(23.6, 16.0), (15.5, 1.8), (14.0, 26.6)]
_GEMS = [(16.0, 14.2), (4.5, 4.5), (15.5, 3.2), (27.5, 7.4), (29.5, 15.5), (30.0, 20.5), (22.0, 25.5), (14.0, 27.5),
         (29.4, 29.6), (5.5, 25.5), (4.5, 11.5)]
_GUARDS = [(26.4, 1.8, -1.0, 0.0), (28.1, 1.8, 0.0, 1.0), (29.8, 1.8, 1.0, 0.0),
           (10.5, 4.0, 1.0, 0.0), (10.5, 6.0, 1.0, 0.0), (20.5, 4.0, -1.0, 0.0), (20.5, 5.4, -1.0, 0.0)]
_WALKERS = [(11.4, 17.0, 0.0, -1.0, 0.7), (20.5, 12.0, 0.0, 1.0, 0.7), (5.2, 14.0, 0.0, 1.0, 0.6),
            (16.3, 5.5, 0.0, 1.0, 0.5), (30.3, 13.0, 0.0, 1.0, 0.6), (20.6, 25.4, 1.0, 0.0, 0.7)]


def entities():
    things = [dict(id=PLAYER_ID, position=_at(16.0, 21.2), rotation=_at(0.0, -1.0), velocity=_at(0.0, 0.0),
                   collision=dict(radius=0.25))]
    for x, y in _FIRES:
        things += _fire(x, y)
    things += [_thing("column", x, y, 1.0, 0.28) for x, y in _COLUMNS]
    things += [_thing("tree", x, y, scale, 0.3) for x, y, scale in _TREES]
    things += [_thing("shrub", x, y, 0.6, 0.22) for x, y in _SHRUBS]
    things += [_thing("barrel", x, y, 0.52, 0.25) for x, y in _BARRELS]
    things += [_wisp(x, y) for x, y in _WISPS]
    things += [_gem(x, y) for x, y in _GEMS]
    things += [_warden(*guard) for guard in _GUARDS + _WALKERS]
    return things


def description(texture_path, sprite_path):
    """The level's JSON text. The arguments give the path of a texture or sprite sheet of some name."""
    level = dict(
        width=len(MAP[0]), height=len(MAP),
        fogColor=[34, 30, 50], fogDensity=9, groundFogColor=[92, 104, 128], groundFogDensity=5,
        skytex="sky.png",
        textures=[texture_path(name) for name in TEXTURES],
        sprites=[dict(texture=sprite_path(name), **sprite) for name, sprite in SPRITES.items()],
        entities=entities())
    return json.dumps(level, indent=1) + "\n"


def cells():
    """The level's grid file."""
    data = bytearray()
    for y, row in enumerate(MAP):
        for x in range(len(row)):
            data += _cell(x, y)
    return bytes(data)


def _symbol(x, y):
    inside = 0 <= y < len(MAP) and 0 <= x < len(MAP[y])
    return MAP[y][x] if inside else "#"


def _cell(x, y):
    symbol = _symbol(x, y)
    room = symbol if symbol in ROOMS else _open_side(x, y, symbol)
    floor, ceiling, _ = ROOMS.get(room, (NONE, NONE, NONE))
    block = EMPTY if symbol in ROOMS else BLOCKS[symbol][0] if symbol in BLOCKS else SQUARE
    faces = [_face(symbol, room, _symbol(x + dx, y + dy), edge, x, y) for edge, dx, dy in FACES]
    return bytes([block] + [_index(name) for name in [floor, ceiling] + faces])


def _open_side(x, y, symbol):
    """The room that a triangle stands in."""
    if symbol not in BLOCKS:
        return None
    solid = BLOCKS[symbol][1]
    rooms = [_symbol(x + dx, y + dy) for edge, dx, dy in FACES if edge not in solid]
    return next(room for room in rooms if room in ROOMS)


def _face(symbol, room, neighbour, edge, x, y):
    """The picture on one face of a cell, as seen from the neighbour there, or through a triangle's open edge."""
    seen_from = room if room and edge not in BLOCKS.get(symbol, (0, ""))[1] else neighbour
    if seen_from in BLOCKS:
        dx, dy = next((dx, dy) for face, dx, dy in FACES if face == edge)
        seen_from = _open_side(x + dx, y + dy, seen_from)
    if seen_from not in ROOMS:
        seen_from = "y"  # a face that nobody sees
    if symbol in BLOCKS and any(_symbol(x + dx, y + dy) == "H" for _, dx, dy in FACES):
        return "hedge"
    picture, shown_in = PICTURES.get(symbol, (None, ""))
    return picture if seen_from in shown_in else ROOMS[seen_from][2]


def _index(name):
    return NO_TEXTURE if name == NONE else TEXTURES.index(name)
