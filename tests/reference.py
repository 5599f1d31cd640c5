"""The rendering rules once more, small and slow, for the tests to compare whole frames against.

Plain Python on plain data. Every expression keeps the order of operations of the rules, because rounding
shows in pixels. Nothing here is shared with the module that is tested.
"""

import ctypes
from collections import namedtuple
from contextlib import suppress
from math import atan2, cos, sin, sqrt

RADIANS = 0.017453292519943295
DEGREES = 57.29577951308232
BACKGROUND = 0xFF00B464
NO_TEXTURE = 255
FLOOR, CEILING, NORTH, EAST, SOUTH, WEST = range(1, 7)   # bytes of a cell; byte 0 is the block
TIME_STEP = 0.05    # seconds from frame to frame
TINY = 1e-14        # stands in for a zero component of a ray
TOUCHING = 1e-8     # a wall nearer than this is no wall

Image = namedtuple("Image", "w h words")
Level = namedtuple("Level", "width height cells textures sky fog_density fog_color ground_density ground_color",
                   defaults=((), None, 0, 0xFF000000, 0, 0xFFFFFFFF))
Camera = namedtuple("Camera", "pos dir fov pitch ratio", defaults=((2.5, 2.5), (1, 0), 60, 0, 1.6))
Hit = namedtuple("Hit", "pos side face texture dist cell")


class Sprite:
    """An entity with a position and a sprite; these are the defaults of what describes it."""

    facing, x_frames, y_frames, frame_count, directions, start_frame = (1.0, 0.0), 1, 1, 1, 1, 0
    oscillate = shadeless = additive = False
    z_offset, scale, percentage, speed = 0.0, 1.0, 0.0, 0.0
    dist = angle_to_cam = 0.0

    def __init__(self, pos, sheet, **changes):
        self.__dict__.update(changes, pos=pos, sheet=sheet)
        self.w, self.h = sheet.w // self.x_frames, sheet.h // self.y_frames


class Unusable(Exception):
    """A fog color that is no pixel: where a pass needs it, the pass ends."""


class Scene:
    """What a frame depends on, and after `render` the frame: rows of words, and per column (hit or None, ray)."""

    def __init__(self, level, camera=Camera(), size=(64, 40), sprites=(), flashlight=None):
        self.level, self.camera, (self.width, self.height) = level, camera, size
        self.sprites, self.flashlight = list(sprites), flashlight
        self.columns = [(None, (0.0, 0.0))] * self.width

    def render(self):
        self.frame = [[BACKGROUND] * self.width for _ in range(self.height)]
        self.camera = self.camera._replace(dir=normalized(self.camera.dir))
        self.horizon = self.height // 2 + self.camera.pitch
        render_sky(self)
        with suppress(Unusable):
            render_columns(self)
            render_sprites(self)


def channels(operation, base, color):
    """`operation` on red, green and blue; the alpha of `base` stays."""
    word = base & 0xFF000000
    for shift in (0, 8, 16):
        word |= operation(base >> shift & 255, color >> shift & 255) << shift
    return word


def mix(base, color, a):
    return channels(lambda b, c: (c * a + b * (255 - a)) >> 8, base, color)


def add_light(base, color, a):
    return channels(lambda b, c: min(((b << 8) + c * a) >> 8, 255), base, color)


def usable(color):
    if not 0 <= color < 2 ** 32:
        raise Unusable(color)
    return color


def pixel(image, x, y):
    """The word at (x, y), clamped to the image."""
    return image.words[min(max(y, 0), image.h - 1) * image.w + min(max(x, 0), image.w - 1)]


def single(value):
    return ctypes.c_float(value).value


def amount(density, dist):
    """How much fog of a density there is at a distance; 255 is solid."""
    return min(max(int(density * dist), 0), 255)


def foot_fog(ground_fog, y, start, span):
    """Ground fog of row y of an upright picture: grows with the square of the way down."""
    ratio = single(single(single(y) - single(start)) / single(span))
    return int(single(single(ground_fog) * single(ratio * ratio)))


def length(x, y):
    return sqrt(x * x + y * y)


def rotated(v, angle):
    c, s = cos(angle), sin(angle)
    return v[0] * c - v[1] * s, v[0] * s + v[1] * c


def normalized(v):
    size = length(*v)
    return v if size == 0.0 else (v[0] / size, v[1] / size)


def in_grid(level, x, y):
    return 0 <= x < level.width and 0 <= y < level.height


def cell_byte(level, cell, byte):
    return level.cells[(cell[1] * level.width + cell[0]) * 7 + byte]


# Hypotenuse of a block type: y offset of its start in the cell, and the vector to its end.
HYPOTENUSE = {2: (1, 1, -1), 3: (0, 1, 1), 4: (0, 1, 1), 5: (1, 1, -1)}
# Signs of the ray's x and y with which it comes in through an open edge.
OPEN_EDGES = {2: (-1, -1), 3: (1, -1), 4: (-1, 1), 5: (1, 1)}


def hypotenuse_point(block, cell, pos, ray):
    """Where the ray's line meets the cell's diagonal, or None."""
    offset, lx, ly = HYPOTENUSE[block]
    den = ray[0] * ly - ray[1] * lx
    if den == 0:
        return None
    t = (ly * (cell[0] - pos[0]) - lx * (cell[1] + offset - pos[1])) / den
    x, y = pos[0] + t * ray[0], pos[1] + t * ray[1]
    inside = cell[0] <= x < cell[0] + 1 and cell[1] <= y < cell[1] + 1
    return (x, y) if inside and (x, y) != (0, 0) else None


def make_hit(level, pos, ray, point, cell, side):
    face = (SOUTH if ray[1] < 0 else NORTH) if side == 1 else (EAST if ray[0] < 0 else WEST)
    dist = length(point[0] - pos[0], point[1] - pos[1])
    return Hit(point, side, face, cell_byte(level, cell, face), dist, cell)


def own_cell_hit(level, pos, ray):
    """The diagonal of the triangular cell that the ray starts in."""
    cell = int(pos[0]), int(pos[1])
    block = cell_byte(level, cell, 0)
    point = hypotenuse_point(block, cell, pos, ray) if block in HYPOTENUSE else None
    if point is None or any(abs(r) >= 1e-7 and not (to - p) / r > 0 for to, p, r in zip(point, pos, ray)):
        return None
    side = ray[0] > 0 if block in (2, 4) else ray[0] < 0
    return make_hit(level, pos, ray, point, cell, int(side))


def trace(level, pos, direction):
    """Follow a ray: the hit, or None when it leaves the grid, and the ray without zeros."""
    ray = tuple(d if d != 0 else TINY for d in direction)
    if not in_grid(level, *pos):
        return None, ray
    line = [int(p) + (d > 0) for p, d in zip(pos, direction)]

    def crossing(axis):
        other = 1 - axis
        across = (line[axis] - pos[axis]) / ray[axis] * ray[other] + pos[other]
        return (line[axis], across) if axis == 0 else (across, line[axis])

    hit = own_cell_hit(level, pos, ray)
    while hit is None:
        points = [crossing(0), crossing(1)]
        dist = [length(p[0] - pos[0], p[1] - pos[1]) for p in points]
        axis = 0 if dist[1] > dist[0] else 1
        point = points[axis]
        cell = [int(point[0]), int(point[1])]
        cell[axis] -= ray[axis] < 0
        if not in_grid(level, *cell):
            break
        block = cell_byte(level, cell, 0)
        if block in OPEN_EDGES and ray[axis] * OPEN_EDGES[block][axis] > 0:
            point = hypotenuse_point(block, cell, pos, ray)
        if block != 0 and point is not None:
            hit = make_hit(level, pos, ray, point, tuple(cell), axis)
        line[axis] += 1 if direction[axis] > 0 else -1
    return hit, ray


def render_sky(scene):
    sky, camera, w, h = scene.level.sky, scene.camera, scene.width, scene.height
    if sky is None:
        return
    deg = atan2(camera.dir[1], camera.dir[0]) * DEGREES
    for x in range(w):
        a = (x / w) * camera.fov + deg - int(camera.fov / 2)
        while a < 0:
            a += 360.0
        sky_x = int(a * (sky.w / 360.0)) % sky.w
        for y in range(h):
            scene.frame[y][x] = pixel(sky, sky_x, int((h - scene.horizon + y) / (2 * h) * sky.h))


def render_columns(scene):
    camera, horizon = scene.camera, scene.horizon
    ray = rotated(camera.dir, camera.fov * -0.5 * RADIANS)
    for x in range(scene.width):
        hit, ray = trace(scene.level, camera.pos, ray)
        if hit is None or hit.dist < TOUCHING:
            hit, start, end = None, horizon, horizon + 1
        else:
            half = int(scene.height / camera.ratio / hit.dist + 0.5)
            start = max(horizon - half, 0)
            end = min(horizon + half, scene.height - 1)
            render_wall(scene, hit, ray, x, start, end, half)
        scene.columns[x] = hit, ray
        if hit is not None and scene.flashlight is not None:
            render_flashlight(scene, hit.dist, x, start, end)
        render_flat(scene, FLOOR, ray, x, range(max(end, horizon + 1, 0), scene.height))
        render_flat(scene, CEILING, ray, x, range(min(start, scene.height)))
        ray = rotated(ray, camera.fov / scene.width * RADIANS)


def render_wall(scene, hit, ray, x, start, end, half):
    level = scene.level
    u = hit.pos[1 - hit.side] - int(hit.pos[1 - hit.side])
    if (ray[1] > 0) if hit.side == 1 else (ray[0] < 0):
        u = 1 - u
    fog, ground_fog = amount(level.fog_density, hit.dist), amount(level.ground_density, hit.dist)
    if fog == 255:
        for y in range(start, end):
            scene.frame[y][x] = usable(level.fog_color)
    elif hit.texture < len(level.textures):
        texture = level.textures[hit.texture]
        tex_step = texture.h / (2 * half + 1)
        tex_pos = (start - (scene.horizon - half)) * tex_step
        for y in range(start, end):
            texel = pixel(texture, int(u * texture.w), int(tex_pos))
            if level.ground_density > 0:
                texel = mix(texel, usable(level.ground_color), foot_fog(ground_fog, y, start, 2 * half))
            scene.frame[y][x] = mix(texel, usable(level.fog_color), fog)
            tex_pos += tex_step


def render_flashlight(scene, dist, x, start, end):
    mask, position = scene.flashlight, 0
    strength = min(int(512.0 / (dist * dist)), 255)
    for y in range(start, end):
        light = pixel(mask, int(x / scene.width * mask.w), int(position))
        scene.frame[y][x] = add_light(scene.frame[y][x], light, strength)
        position += 3.0 / dist
        if position >= mask.h:
            break


def render_flat(scene, plane, ray, x, rows):
    """The rows of a column that show the floor or the ceiling; none is at the horizon."""
    level, camera = scene.level, scene.camera
    for y in rows:
        row_dist = scene.height / camera.ratio / abs(y - scene.horizon)
        point = row_dist * ray[0] + camera.pos[0], row_dist * ray[1] + camera.pos[1]
        if not in_grid(level, *point):
            continue
        cell = int(point[0]), int(point[1])
        index, fog = cell_byte(level, cell, plane), amount(level.fog_density, row_dist)
        if fog == 255 and index != NO_TEXTURE:
            scene.frame[y][x] = usable(level.fog_color)
        elif index < len(level.textures):
            texture = level.textures[index]
            texel = pixel(texture, int((point[0] - cell[0]) * texture.w), int((point[1] - cell[1]) * texture.h))
            if plane == FLOOR:
                texel = mix(texel, usable(level.ground_color), amount(level.ground_density, row_dist))
            scene.frame[y][x] = mix(texel, usable(level.fog_color), fog)


def to_view(camera, pos):
    """A world point as (depth along the view, offset to the right)."""
    angle = (360.0 - atan2(camera.dir[1], camera.dir[0]) * DEGREES) * RADIANS
    return rotated((pos[0] - camera.pos[0], pos[1] - camera.pos[1]), angle)


def sort_sprites(scene):
    """The farthest first; of two at one distance the order stays."""
    eye = scene.camera.pos
    for sprite in scene.sprites:
        sprite.dist = length(eye[0] - sprite.pos[0], eye[1] - sprite.pos[1])
    scene.sprites.sort(key=lambda sprite: sprite.dist, reverse=True)


def advance_animation(sprite):
    sprite.percentage += sprite.speed * TIME_STEP
    if sprite.oscillate and not 0.0 <= sprite.percentage < 1.0:
        sprite.speed = -sprite.speed
        sprite.percentage += (1.0 if sprite.percentage < 0.0 else -1.0) / sprite.frame_count
    elif sprite.percentage >= 1.0:
        sprite.percentage = 0.0


def sheet_corner(sprite):
    """Top left pixel of the frame to show, by animation step and viewing direction."""
    step = max(int(sprite.percentage * sprite.frame_count), 0)
    dirs = sprite.directions
    view = int(dirs * (sprite.angle_to_cam + 1.0 / (2 * dirs))) % dirs
    frame = step * dirs + sprite.start_frame + view
    return frame % sprite.x_frames * sprite.w, frame // sprite.x_frames * sprite.h


def render_sprites(scene):
    camera, half_w = scene.camera, scene.width // 2
    sort_sprites(scene)
    for sprite in scene.sprites:
        diff = camera.pos[0] - sprite.pos[0], camera.pos[1] - sprite.pos[1]
        turn = atan2(diff[1], diff[0]) - atan2(sprite.facing[1], sprite.facing[0])
        sprite.angle_to_cam = 1.0 - (turn + 3.141592653589793) / 6.283185307179586 + 0.5
    for sprite in scene.sprites:
        advance_animation(sprite)
        depth, right = to_view(camera, sprite.pos)
        if not depth > 0:
            continue
        half_h = int(scene.height / camera.ratio / depth)
        if half_h == 0:
            return      # too far away to have a size: ends the pass with a ZeroDivisionError
        projected = right / depth * scene.width + half_w
        if -2 ** 31 <= projected < 2 ** 31:
            screen_x = int(int(projected) - (int(projected) - half_w) * 0.25)
            draw_sprite(scene, sprite, depth, screen_x, half_h)


def extent(low, high, screen, step):
    """The pixels that a sprite covers along one axis, and the texel of the first."""
    start, end = int(low), min(int(high), screen)
    return (0, end, -start * step) if start < 0 else (start, end, 0)


def draw_sprite(scene, sprite, depth, screen_x, half_h):
    level, horizon = scene.level, scene.horizon
    size, lift = half_h * sprite.scale, half_h * sprite.z_offset
    step_x = sprite.w / (half_h * 2) / sprite.scale
    step_y = sprite.h / (half_h * 2) / sprite.scale
    start_x, end_x, tex_x = extent(screen_x - size, screen_x + size, scene.width, step_x)
    start_y, end_y, top = extent(lift + (horizon - size), horizon + size + lift, scene.height, step_y)
    fog, ground_fog = amount(level.fog_density, sprite.dist), amount(level.ground_density, sprite.dist)
    left, upper = sheet_corner(sprite)
    blend = add_light if sprite.additive else mix
    for x in range(start_x, end_x):
        hit, tex_y = scene.columns[x][0], top
        for y in range(start_y, end_y) if hit is None or hit.dist > depth else ():
            p = pixel(sprite.sheet, int(tex_x) + left, int(tex_y) + upper)
            if not sprite.shadeless:
                p = mix(p, usable(level.ground_color), foot_fog(ground_fog, y, start_y, end_y - start_y))
                p = mix(p, usable(level.fog_color), fog)
            scene.frame[y][x] = blend(scene.frame[y][x], p, p >> 24)
            tex_y += step_y
        tex_x += step_x


def pick_sprite(scene, x, y):
    camera, width, height = scene.camera, scene.width, scene.height
    horizon = 0.5 * height + camera.pitch
    sort_sprites(scene)
    hit, result = scene.columns[x][0], None
    for sprite in scene.sprites:
        depth, right = to_view(camera, sprite.pos)
        if not depth > 0 or (hit is not None and hit.dist < depth):
            continue
        half = int(height / camera.ratio / depth)
        left = int(width / 2 + width * (right / depth)) - half
        top = int(horizon - half)
        if left <= x <= left + 2 * half and top <= y <= top + 2 * half:
            result = sprite
    return result


def pick_point(scene, x, y):
    """(face, x, y): floats on floor and ceiling, the cell on a wall; None on the bare horizon."""
    hit, ray = scene.columns[x]
    horizon = 0.5 * scene.height + scene.camera.pitch
    scale = scene.height / scene.camera.ratio
    wall_half = 0 if hit is None or hit.dist == 0 else int(scale / hit.dist)
    if y > horizon + wall_half:
        face, row_dist = FLOOR, scale / (y - horizon)
    elif y < horizon - wall_half:
        face, row_dist = CEILING, scale / (horizon - y)
    else:
        return None if hit is None else (hit.face,) + hit.cell
    return face, ray[0] * row_dist + scene.camera.pos[0], ray[1] * row_dist + scene.camera.pos[1]
