"""Simple solids, lit and drawn without perspective into small sprite frames.

Model coordinates: x points where the figure looks, y to its right hand, z up. The unit is the frame's width.
"""

import numpy as np

from .relief import paint, to_bytes

FRAME = 64
_DETAIL = 4
_LIGHT = np.array([-0.5, 0.62, 0.6])  # in screen directions: right, up, towards the viewer
_REFLECTED = np.array([0.75, -0.6, 0.28])
_HALF = (_LIGHT + [0, 0, 1]) / np.sqrt(((_LIGHT + [0, 0, 1]) ** 2).sum())


def turn(axis, degrees):
    """The matrix of a rotation about "x", "y" or "z"."""
    c, s = np.cos(np.radians(degrees)), np.sin(np.radians(degrees))
    i, j = {"x": (1, 2), "y": (2, 0), "z": (0, 1)}[axis]
    matrix = np.eye(3)
    matrix[i, i], matrix[i, j], matrix[j, i], matrix[j, j] = c, -s, s, c
    return matrix


class Stage:
    """Draws solids as seen from one side, nearest surface first."""

    def __init__(self, degrees=0.0, tilt=10.0, base=0.035):
        """degrees: where the viewer stands, from the direction the figure looks, towards its right hand."""
        angle, up = np.radians(degrees), np.radians(tilt)
        flat = np.array([np.cos(angle), np.sin(angle), 0.0])
        z = np.array([0.0, 0.0, 1.0])
        self._toward = flat * np.cos(up) + z * np.sin(up)
        self._right = np.array([np.sin(angle), -np.cos(angle), 0.0])
        self._up = z * np.cos(up) - flat * np.sin(up)
        self._base = base
        size = FRAME * _DETAIL
        line = (np.arange(size) + 0.5) / size
        across, down = np.meshgrid(line - 0.5, 1.0 - base - line)
        self._origin = across[..., None] * self._right + down[..., None] * self._up
        self._depth = np.full((size, size), -np.inf)
        self._color = np.zeros((size, size, 3))

    def ellipsoid(self, center, radii, ramp, axes=np.eye(3), **look):
        """axes: columns are the directions of the three radii."""
        window = self._window(center, max(radii))
        start = (self._origin[window] - center) @ axes / radii
        step = self._toward @ axes / radii
        a = step @ step
        b = start @ step
        c = (start * start).sum(axis=2) - 1
        root = b * b - a * c
        hit = root > 0
        depth = np.where(hit, (-b + np.sqrt(np.maximum(root, 0))) / a, -np.inf)
        local = start + np.where(hit, depth, 0)[..., None] * step
        self._surface(window, depth, (local / radii) @ axes.T, ramp, **look)

    def limb(self, start, end, radius, ramp, **look):
        """A rounded rod between two points."""
        start, end = np.asarray(start, float), np.asarray(end, float)
        along = end - start
        length = np.sqrt(along @ along)
        if length > 0:
            axis = along / length
            window = self._window((start + end) / 2, length / 2 + radius)
            relative = self._origin[window] - start
            step = self._toward - axis * (self._toward @ axis)
            offset = relative - (relative @ axis)[..., None] * axis
            a = step @ step
            b = offset @ step
            root = b * b - a * ((offset * offset).sum(axis=2) - radius * radius)
            depth = (-b + np.sqrt(np.maximum(root, 0))) / max(a, 1e-9)
            point = relative + depth[..., None] * self._toward
            place = point @ axis
            hit = (root > 0) & (place > 0) & (place < length)
            normal = point - place[..., None] * axis
            self._surface(window, np.where(hit, depth, -np.inf), normal, ramp, **look)
        for ball in (start, end):
            self.ellipsoid(ball, np.full(3, radius), ramp, **look)

    def crystal(self, center, normals, distances, ramp, **look):
        """A convex body between planes."""
        relative = self._origin - center
        near = np.full(self._depth.shape, np.inf)
        far = np.full(self._depth.shape, -np.inf)
        facing = np.zeros(self._depth.shape + (3,))
        for normal, distance in zip(normals, distances):
            rate = normal @ self._toward
            gap = distance - relative @ normal
            if rate > 1e-9:
                depth = gap / rate
                facing = np.where((depth < near)[..., None], normal, facing)
                near = np.minimum(near, depth)
            elif rate < -1e-9:
                far = np.maximum(far, gap / rate)
            else:
                near = np.where(gap < 0, -np.inf, near)
        self._surface(np.s_[:, :], np.where(near > far, near, -np.inf), facing, ramp, **look)

    def _window(self, center, reach):
        """The part of the picture that a body around a centre can touch."""
        center = np.asarray(center, float)
        size = FRAME * _DETAIL
        middles = (1.0 - self._base - center @ self._up, center @ self._right + 0.5)
        return tuple(slice(max(0, int((middle - reach) * size) - 1), max(0, int((middle + reach) * size) + 2))
                     for middle in middles)

    def _surface(self, window, depth, normal, ramp, tone=0.5, shine=0.0, glow=0.0):
        visible = depth > self._depth[window]
        length = np.sqrt((normal * normal).sum(axis=2))
        normal = normal / np.maximum(length, 1e-12)[..., None]
        screen = np.stack([normal @ self._right, normal @ self._up, normal @ self._toward], axis=2)
        lit = np.maximum(screen @ _LIGHT, 0) + 0.3 * np.maximum(screen @ _REFLECTED, 0)
        sparkle = np.maximum(screen @ _HALF, 0) ** 30 * shine
        brightness = tone * (0.25 + 1.15 * lit + 0.2 * np.maximum(screen[..., 1], 0)) + sparkle
        brightness = brightness * (1 - glow) + glow * (0.55 + 0.45 * screen[..., 2])
        self._color[window][visible] = paint(brightness, ramp)[visible]
        self._depth[window][visible] = depth[visible]

    def frame(self, outline="14101a"):
        """The picture as 64 x 64 RGBA bytes, with hard edges and a thin dark outline."""
        covered = (self._depth > -np.inf).astype(float)
        weight = _shrink(covered[..., None])
        color = _shrink(self._color * covered[..., None]) / np.maximum(weight, 1e-9)
        solid = weight[..., 0] >= 0.5
        inner = solid & np.roll(solid, 1, 0) & np.roll(solid, -1, 0) & np.roll(solid, 1, 1) & np.roll(solid, -1, 1)
        edge = solid & ~inner
        color = np.where(edge[..., None], color * 0.45 + paint(np.zeros(edge.shape), [outline, outline]) * 0.3, color)
        return with_alpha(color, np.where(solid, 255, 0))


def with_alpha(color, alpha):
    """Joins colors and alpha to RGBA bytes; what is fully transparent is black."""
    alpha = to_bytes(alpha)
    return np.dstack([to_bytes(color) * (alpha > 0)[..., None], alpha])


def _shrink(field):
    height, width, channels = field.shape
    return field.reshape(height // _DETAIL, _DETAIL, width // _DETAIL, _DETAIL, channels).mean(axis=(1, 3))


def sheet(frames, columns):
    """Joins frames row by row to one sheet."""
    rows = [np.hstack(frames[i:i + columns]) for i in range(0, len(frames), columns)]
    return np.vstack(rows)
