"""The rendering rules once more, small and slow, for the tests to compare whole frames against.

Plain Python on plain data. Every expression keeps the order of operations of the rules, because
rounding shows in pixels. `render` draws one frame; the `pick_*` functions and `cast_ray` answer
the queries. Nothing here is shared with the module that is tested.
"""

import ctypes
from collections import namedtuple
from math import atan2, cos, sin, sqrt

RADIANS = 0.017453292519943295
DEGREES = 57.29577951308232
BACKGROUND = 0xFF00B464
NO_TEXTURE = 255
FLOOR, CEILING, NORTH, EAST, SOUTH, WEST = range(1, 7)
TINY = 1e-14        # stands in for a zero component of a ray
TOUCHING = 1e-8     # a wall nearer than this is no wall

Image = namedtuple("Image", "w h words")
Level = namedtuple("Level", "width height cells textures sky fog_density fog_color"
                            " ground_density ground_color")
Camera = namedtuple("Camera", "pos dir fov pitch ratio")
Hit = namedtuple("Hit", "pos side face texture dist cell")
Column = namedtuple("Column", "hit ray")   # hit is None where the column shows no wall


class Sprite:
    """One entity with a position and a sprite; `dist` to `speed` change from frame to frame."""

    def __init__(self, pos, facing, sheet, x_frames, y_frames, frame_count, directions, oscillate,
                 speed, start_frame, shadeless, additive, z_offset, scale, percentage):
        self.pos, self.facing = pos, facing
        self.sheet, self.x_frames, self.y_frames = sheet, x_frames, y_frames
        self.w, self.h = sheet.w // x_frames, sheet.h // y_frames
        self.frame_count, self.directions, self.start_frame = frame_count, directions, start_frame
        self.oscillate, self.shadeless, self.additive = oscillate, shadeless, additive
        self.z_offset, self.scale = z_offset, scale
        self.dist, self.angle_to_cam = 0.0, 0.0
        self.percentage, self.speed = percentage, speed


class Frame:
    """The target's words, and for each of them the name of the pass that wrote it last."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.words = [BACKGROUND] * (width * height)
        self.passes = ["fill"] * (width * height)

    def get(self, x, y):
        return self.words[y * self.width + x]

    def put(self, x, y, word, name):
        self.words[y * self.width + x] = word
        self.passes[y * self.width + x] = name

    def rows(self, start, end):
        return range(max(start, 0), min(end, self.height))


# ---- pixels

def channels(operation, base, colour):
    """`operation` on red, green and blue; the alpha of `base` stays."""
    word = base & 0xFF000000
    for shift in (0, 8, 16):
        word |= operation(base >> shift & 255, colour >> shift & 255) << shift
    return word


def mix(base, colour, a):
    return channels(lambda b, c: (c * a + b * (255 - a)) >> 8, base, colour)


def add_light(base, colour, a):
    return channels(lambda b, c: min(((b << 8) + c * a) >> 8, 255), base, colour)


def pixel(image, x, y):
    """The word at (x, y), clamped to the image."""
    return image.words[min(max(y, 0), image.h - 1) * image.w + min(max(x, 0), image.w - 1)]


def single(value):
    return ctypes.c_float(value).value


def foot_fog(ground_fog, y, start, span):
    """Ground fog of row y of an upright picture: grows with the square of the way down."""
    ratio = single(single(single(y) - single(start)) / single(span))
    return int(single(single(ground_fog) * single(ratio * ratio)))


# ---- geometry

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
    if side == 1:
        face = SOUTH if ray[1] < 0 else NORTH
    else:
        face = EAST if ray[0] < 0 else WEST
    dist = length(point[0] - pos[0], point[1] - pos[1])
    return Hit(point, side, face, cell_byte(level, cell, face), dist, cell)


def own_cell_hit(level, pos, ray):
    """The diagonal of the triangular cell that the ray starts in."""
    cell = int(pos[0]), int(pos[1])
    block = cell_byte(level, cell, 0)
    point = hypotenuse_point(block, cell, pos, ray) if block in HYPOTENUSE else None
    if point is None:
        return None
    for axis in (0, 1):
        if abs(ray[axis]) >= 1e-7 and not (point[axis] - pos[axis]) / ray[axis] > 0:
            return None
    side = ray[0] > 0 if block in (2, 4) else ray[0] < 0
    return make_hit(level, pos, ray, point, cell, int(side))


def trace(level, pos, direction):
    """Follow a ray: the hit, or None when it leaves the grid, and the ray without zeros."""
    step = [1 if d > 0 else -1 for d in direction]
    ray = tuple(d if d != 0 else TINY for d in direction)
    if not in_grid(level, *pos):
        return None, ray
    line = [int(p) + (d > 0) for p, d in zip(pos, direction)]

    def crossing(axis):
        other = 1 - axis
        across = (line[axis] - pos[axis]) / ray[axis] * ray[other] + pos[other]
        return (line[axis], across) if axis == 0 else (across, line[axis])

    hit = own_cell_hit(level, pos, ray)
    points = [crossing(0), crossing(1)]
    while hit is None:
        dist = [length(p[0] - pos[0], p[1] - pos[1]) for p in points]
        axis = 0 if dist[1] > dist[0] else 1
        point = points[axis]
        cell = [int(point[0]), int(point[1])]
        if ray[axis] < 0:
            cell[axis] -= 1
        if not in_grid(level, *cell):
            return None, ray
        block = cell_byte(level, cell, 0)
        if block in OPEN_EDGES and ray[axis] * OPEN_EDGES[block][axis] > 0:
            point = hypotenuse_point(block, cell, pos, ray)
        if block != 0 and point is not None:
            hit = make_hit(level, pos, ray, point, tuple(cell), axis)
        line[axis] += step[axis]
        points[axis] = crossing(axis)
    return hit, ray


# ---- passes

def render(level, camera, width, height, sprites, time_step, flashlight=None):
    """One frame: its words, its columns (the depths), and `sprites` sorted and moved on."""
    frame = Frame(width, height)
    camera = camera._replace(dir=normalized(camera.dir))
    horizon = height // 2 + camera.pitch
    render_sky(frame, level, camera, horizon)
    columns = render_columns(frame, level, camera, horizon, flashlight)
    render_sprites(frame, level, camera, horizon, columns, sprites, time_step)
    return frame, columns


def render_sky(frame, level, camera, horizon):
    sky, w, h = level.sky, frame.width, frame.height
    if sky is None:
        return
    deg = atan2(camera.dir[1], camera.dir[0]) * DEGREES
    column_scale = sky.w / 360.0
    for x in range(w):
        a = (x / w) * camera.fov + deg - int(camera.fov / 2)
        while a < 0:
            a += 360.0
        sky_x = int(a * column_scale) % sky.w
        for y in range(h):
            sky_y = int((h - horizon + y) / (2 * h) * sky.h)
            frame.put(x, y, pixel(sky, sky_x, sky_y), "sky")


def render_columns(frame, level, camera, horizon, flashlight):
    columns = []
    ray = rotated(camera.dir, camera.fov * -0.5 * RADIANS)
    for x in range(frame.width):
        hit, ray = trace(level, camera.pos, ray)
        if hit is None or hit.dist < TOUCHING:
            hit, start, end = None, horizon, horizon + 1
        else:
            half = int(frame.height / camera.ratio / hit.dist + 0.5)
            start = max(horizon - half, 0)
            end = min(horizon + half, frame.height - 1)
            render_wall(frame, level, hit, ray, x, start, end, horizon, half)
            if flashlight is not None:
                render_flashlight(frame, flashlight, hit.dist, x, start, end)
        columns.append(Column(hit, ray))
        render_floor(frame, level, camera, ray, x, end, horizon)
        render_ceiling(frame, level, camera, ray, x, start, horizon)
        ray = rotated(ray, camera.fov / frame.width * RADIANS)
    return columns


def render_wall(frame, level, hit, ray, x, start, end, horizon, half):
    u = hit.pos[1 - hit.side]
    u -= int(u)
    if (ray[1] > 0) if hit.side == 1 else (ray[0] < 0):
        u = 1 - u
    fog = int(hit.dist * level.fog_density)
    ground_fog = min(int(level.ground_density * hit.dist), 255)
    if fog >= 255:
        for y in frame.rows(start, end):
            frame.put(x, y, level.fog_color, "wall in solid fog")
        return
    if hit.texture >= len(level.textures):
        return
    texture = level.textures[hit.texture]
    tex_x = int(u * texture.w)
    tex_step = texture.h / (2 * half + 1)
    tex_pos = (start - (horizon - half)) * tex_step
    for y in frame.rows(start, end):
        texel = pixel(texture, tex_x, int(tex_pos))
        if level.ground_density > 0:
            texel = mix(texel, level.ground_color, foot_fog(ground_fog, y, start, 2 * half))
        frame.put(x, y, mix(texel, level.fog_color, fog), "wall")
        tex_pos += tex_step


def render_flashlight(frame, mask, dist, x, start, end):
    alpha = min(int(512.0 / (dist * dist)), 255)
    position = 0
    for y in frame.rows(start, end):
        light = pixel(mask, int(x / frame.width * mask.w), int(position))
        frame.put(x, y, add_light(frame.get(x, y), light, alpha), "flashlight")
        position += 3.0 / dist
        if position >= mask.h:
            break


def flat_point(level, camera, ray, row_dist):
    """The point of a floor or ceiling at that distance along the column's ray, or None."""
    x, y = row_dist * ray[0] + camera.pos[0], row_dist * ray[1] + camera.pos[1]
    return (x, y) if in_grid(level, x, y) else None


def flat_texel(texture, point):
    x, y = point
    return pixel(texture, int((x - int(x)) * texture.w), int((y - int(y)) * texture.h))


def render_floor(frame, level, camera, ray, x, end, horizon):
    for y in frame.rows(max(end, horizon + 1), frame.height):   # there is no floor above the horizon
        row_dist = frame.height / camera.ratio / (y - horizon)
        point = flat_point(level, camera, ray, row_dist)
        if point is None:
            continue
        ground_fog = min(max(int(level.ground_density * row_dist), 0), 255)
        fog = int(row_dist * level.fog_density)
        index = cell_byte(level, (int(point[0]), int(point[1])), FLOOR)
        if index == NO_TEXTURE:
            continue
        if fog >= 255:
            frame.put(x, y, level.fog_color, "floor in solid fog")
        elif index < len(level.textures):
            texel = mix(flat_texel(level.textures[index], point), level.ground_color, ground_fog)
            frame.put(x, y, mix(texel, level.fog_color, fog), "floor")


def render_ceiling(frame, level, camera, ray, x, start, horizon):
    for y in frame.rows(0, start):
        row_dist = frame.height / camera.ratio / (horizon - y)
        point = flat_point(level, camera, ray, row_dist)
        if point is None:
            continue
        fog = int(row_dist * level.fog_density)
        index = cell_byte(level, (int(point[0]), int(point[1])), CEILING)
        if index == NO_TEXTURE:
            continue
        if fog >= 255:
            frame.put(x, y, level.fog_color, "ceiling in solid fog")
        elif index < len(level.textures):
            texel = flat_texel(level.textures[index], point)
            frame.put(x, y, mix(texel, level.fog_color, fog), "ceiling")


# ---- sprites

def to_view(camera, pos):
    """A world point as (depth along the view, offset to the right)."""
    angle = (360.0 - atan2(camera.dir[1], camera.dir[0]) * DEGREES) * RADIANS
    return rotated((pos[0] - camera.pos[0], pos[1] - camera.pos[1]), angle)


def advance_animation(sprite, time_step):
    sprite.percentage += sprite.speed * time_step
    if sprite.oscillate and sprite.percentage >= 1.0:
        sprite.speed = -sprite.speed
        sprite.percentage -= 1.0 / sprite.frame_count
    elif sprite.oscillate and sprite.percentage < 0.0:
        sprite.speed = -sprite.speed
        sprite.percentage += 1.0 / sprite.frame_count
    elif not sprite.oscillate and sprite.percentage >= 1.0:
        sprite.percentage = 0.0


def sheet_corner(sprite):
    """Top left pixel of the frame to show, by animation step and viewing direction."""
    step = int(sprite.percentage * sprite.frame_count)
    dirs = sprite.directions
    view = int(dirs * (sprite.angle_to_cam + 1.0 / (2 * dirs))) % dirs
    frame = step * dirs + sprite.start_frame + view
    return frame % sprite.x_frames * sprite.w, frame // sprite.x_frames * sprite.h


def render_sprites(frame, level, camera, horizon, columns, sprites, time_step):
    for sprite in sprites:
        diff = camera.pos[0] - sprite.pos[0], camera.pos[1] - sprite.pos[1]
        sprite.dist = length(*diff)
        turn = atan2(diff[1], diff[0]) - atan2(sprite.facing[1], sprite.facing[0])
        sprite.angle_to_cam = 1.0 - (turn + 3.141592653589793) / 6.283185307179586 + 0.5
    sprites.sort(key=lambda sprite: sprite.dist, reverse=True)
    for number, sprite in enumerate(sprites):
        advance_animation(sprite, time_step)
        depth, right = to_view(camera, sprite.pos)
        if not depth > 0:
            continue
        half_w = frame.width // 2
        projected = right / depth * frame.width + half_w
        if not -2 ** 31 <= projected < 2 ** 31:
            continue
        screen_x = int(int(projected) - (int(projected) - half_w) * 0.25)
        half_h = int(frame.height / camera.ratio / depth)
        if half_h == 0:
            return      # too far away to have a size: ends the pass with a ZeroDivisionError
        draw_sprite(frame, level, sprite, depth, screen_x, half_h, horizon, columns,
                    "sprite {} from the back".format(number))


def draw_sprite(frame, level, sprite, depth, screen_x, half_h, horizon, columns, name):
    scale = sprite.scale
    end_x = min(int(screen_x + half_h * scale), frame.width)
    start_x = int(screen_x - half_h * scale)
    step_x = sprite.w / (half_h * 2) / scale
    step_y = sprite.h / (half_h * 2) / scale
    end_y = min(int(horizon + half_h * scale + half_h * sprite.z_offset), frame.height)
    start_y = int(half_h * sprite.z_offset + (horizon - half_h * scale))
    tex_x = top = 0
    if start_x < 0:
        tex_x, start_x = -start_x * step_x, 0
    if start_y < 0:
        top, start_y = start_y * -step_y, 0
    fog = min(int(level.fog_density * sprite.dist), 255)
    ground_fog = min(max(int(level.ground_density * sprite.dist), 0), 255)
    left, upper = sheet_corner(sprite)
    for x in range(start_x, end_x):
        hit = columns[x].hit
        tex_y = top
        for y in range(start_y, end_y) if hit is None or hit.dist > depth else ():
            p = pixel(sprite.sheet, int(tex_x) + left, int(tex_y) + upper)
            if not sprite.shadeless:
                g = foot_fog(ground_fog, y, start_y, end_y - start_y)
                p = mix(mix(p, level.ground_color, g), level.fog_color, fog)
            blend = add_light if sprite.additive else mix
            frame.put(x, y, blend(frame.get(x, y), p, p >> 24), name)
            tex_y += step_y
        tex_x += step_x


# ---- queries

def cast_ray(level, pos, direction):
    hit, _ = trace(level, pos, direction)
    return None if hit is None else hit.pos


def pick_sprite(camera, width, height, columns, sprites, x, y):
    horizon = 0.5 * height + camera.pitch
    for sprite in sprites:
        sprite.dist = length(camera.pos[0] - sprite.pos[0], camera.pos[1] - sprite.pos[1])
    sprites.sort(key=lambda sprite: sprite.dist, reverse=True)
    hit, result = columns[x].hit, None
    for sprite in sprites:
        depth, right = to_view(camera, sprite.pos)
        if not depth > 0 or (hit is not None and hit.dist < depth):
            continue
        half = int(height / camera.ratio / depth)
        left = int(width / 2 + width * (right / depth)) - half
        top = int(horizon - half)
        if left <= x <= left + 2 * half and top <= y <= top + 2 * half:
            result = sprite
    return result


def pick_point(camera, height, columns, x, y):
    """(face, x, y): floats on floor and ceiling, the cell on a wall; None on the bare horizon."""
    hit, ray = columns[x]
    horizon = 0.5 * height + camera.pitch
    scale = height / camera.ratio
    wall_half = 0 if hit is None or hit.dist == 0 else int(scale / hit.dist)
    if y > horizon + wall_half:
        face, row_dist = FLOOR, scale / (y - horizon)
    elif y < horizon - wall_half:
        face, row_dist = CEILING, scale / (horizon - y)
    else:
        return None if hit is None else (hit.face,) + hit.cell
    return face, ray[0] * row_dist + camera.pos[0], ray[1] * row_dist + camera.pos[1]
