"""Materials: functions of s and t, metres along the two edges of a surface, that return colours."""

import numpy as np

TARGET_SIZE = 0.4

_TABLE = np.random.default_rng(1871).random(4096).astype(np.float32)


def chance(i, j=0):
    """A fixed random number of [0, 1) for every pair of whole numbers."""
    return _TABLE[(np.asarray(i, np.int64) * 733 + np.asarray(j, np.int64) * 1907) % 4096]


def mottled(s, t, cell):
    """Smooth noise of [-1, 1] whose spots are about `cell` metres wide."""
    x, y = s / cell + 7.3, t / cell + 3.1
    i, j = np.floor(x).astype(np.int32), np.floor(y).astype(np.int32)
    x, y = x - i, y - j
    x, y = x * x * (3 - 2 * x), y * y * (3 - 2 * y)
    low = chance(i, j) * (1 - x) + chance(i + 1, j) * x
    high = chance(i, j + 1) * (1 - x) + chance(i + 1, j + 1) * x
    return 2 * (low * (1 - y) + high * y) - 1


def tinted(colour, light):
    return np.asarray(colour, np.float32)[None, :] * np.asarray(light, np.float32)[:, None]


def plain(colour, spots=0.05):
    return lambda s, t: tinted(colour, 1 + spots * mottled(s, t, 0.4))


def courses(colour, joint, width, height, offset=0.5, joints=0.012, spread=0.12, alternate=None):
    """Bricks, slabs, boards or tiles: courses of `height` with joints and a tone for every piece."""

    def material(s, t):
        row = np.floor(t / height)
        across = s / width + offset * (row % 2)
        piece = np.floor(across)
        light = 1 + spread * (chance(piece, row) - 0.5) * 2 + 0.04 * mottled(s, t, 0.15)
        colours = tinted(colour, light)
        if alternate is not None:
            other = (piece + row) % 2 == 1
            colours[other] = tinted(alternate, light[other])
        inJoint = ((across - piece) * width < joints) | ((t / height - row) * height < joints)
        colours[inJoint] = np.asarray(joint, np.float32)
        return colours

    return material


ROOF_TILE = (176, 92, 66)


def roofTiles(s, t):
    """Plain tiles whose lower edges throw a shadow; t runs up the slope."""
    row = np.floor(t / 0.33)
    across = s / 0.24 + 0.5 * (row % 2)
    piece = np.floor(across)
    within = t / 0.33 - row
    light = 0.86 + 0.3 * chance(piece, row) + 0.07 * mottled(s, t, 1.7)
    light *= np.where(within < 0.16, 0.62, 0.92 + 0.12 * within)
    light *= np.where((across - piece) < 0.07, 0.8, 1.0)
    moss = np.clip(mottled(s + 40, t, 0.9) - 0.35, 0, 1) * np.clip(1.3 - t / 3, 0, 1)
    return tinted(ROOF_TILE, light) * (1 - moss[:, None]) + tinted((116, 112, 74), light) * moss[:, None]


def frame(s, t, width, height):
    """The white wood of a casement window: rim, mullion and transom."""
    rim = np.minimum(np.minimum(s, width - s), np.minimum(t, height - t)) < 0.07
    return rim | (np.abs(s - width / 2) < 0.05) | (np.abs(t - height * 0.68) < 0.035)


def glazing(width, height):
    """A casement window: white frame, dark panes that mirror some sky, shadow of the reveal."""

    def material(s, t):
        colours = tinted((74, 88, 100), 0.8 + 0.35 * t / height + 0.25 * mottled(s * 2 + t, t, 0.5))
        wood = frame(s, t, width, height)
        colours[wood] = tinted((232, 230, 222), 1 + 0.02 * mottled(s[wood], t[wood], 0.2))
        shade = 1 - 0.5 * np.exp(-(height - t) / 0.10) - 0.3 * np.exp(-s / 0.06)
        return colours * np.clip(shade, 0.3, 1)[:, None]

    return material


def panes(width, height, place):
    """The share of pulses that come back: of a frame all, of glass few, in patches that no two windows share."""

    def echo(s, t):
        patches = np.clip(0.16 + 0.5 * mottled(s + 3.7 * place[0], t + 2.3 * place[1], 0.45), 0.02, 1)
        return np.where(frame(s, t, width, height), 1.0, patches)

    return echo


def panelled(colour, width, height, columns, rows):
    """A door or gate leaf of `columns` by `rows` panels."""

    def material(s, t):
        x, y = (s / width * columns) % 1, (t / height * rows) % 1
        edge = np.minimum(np.minimum(x, 1 - x) * width / columns, np.minimum(y, 1 - y) * height / rows)
        light = np.where(edge < 0.06, 1.0, np.where(edge < 0.085, 0.55, 0.86))
        light *= 1 + 0.06 * mottled(s * 6, t, 0.5)
        light *= 1 - 0.45 * np.exp(-(height - t) / 0.15)
        return tinted(colour, light)

    return material


def facade(length, bottom, openings, facing, gable):
    """Ochre plaster with stone quoins, surrounds of openings, rain streaks and shade below the cornice."""

    def material(s, t):
        z = t + bottom
        light = facing * (1 + 0.05 * mottled(s, z, 1.6) + 0.035 * mottled(s, z, 0.25))
        light *= 1 - 0.10 * np.exp(-(z - 0.35) / 0.5)
        if not gable:
            light *= 1 - 0.28 * np.exp(-np.abs(5.65 - z) / 0.22)
        light *= 1 - 0.22 * np.exp(-np.abs(2.88 - z) / 0.10) * (z < 2.89)
        for opening in openings:
            below = (np.abs(s - opening.middle) < opening.width / 2 + 0.1) & (z < opening.sill - 0.08)
            streak = below * np.exp(-(opening.sill - z) / 0.7) * (0.5 + 0.5 * mottled(s, z * 0.05, 0.09))
            light *= 1 - 0.20 * np.clip(streak, 0, 1)
        colours = tinted((226, 197, 146), light)
        stone = np.zeros(len(s), bool)
        for opening in openings:
            around = (np.abs(s - opening.middle) < opening.width / 2 + 0.14) & (z < opening.top + 0.18)
            stone |= around & (z > opening.sill - 0.02)
        course = np.floor((z + 0.05) / 0.4)
        reach = np.where(course % 2 == 0, 0.55, 0.36)
        fromCorner = np.minimum(s, length - s)
        quoin = (fromCorner < reach) & (z < 5.95)
        colours[stone] = tinted((222, 214, 196), light[stone])
        colours[quoin] = tinted((206, 196, 174), light[quoin] * (0.94 + 0.12 * chance(course[quoin])))
        joint = quoin & ((((z + 0.05) / 0.4 - course) < 0.05) | (np.abs(fromCorner - reach) < 0.015))
        colours[joint] *= 0.72
        return colours

    return material


STONE = courses((168, 160, 146), (120, 114, 104), 0.9, 0.29, joints=0.015)
TRIM = plain((214, 206, 188))
WHITEWASH = plain((233, 230, 221), 0.03)
REVEAL = plain((196, 186, 164))
TIMBER = courses((142, 104, 70), (92, 66, 44), 2.4, 0.18, joints=0.010)
OAK = courses((188, 146, 98), (140, 104, 66), 1.2, 0.14, joints=0.007)
CHEQUER = courses((222, 216, 204), (170, 162, 150), 0.4, 0.4, offset=0, joints=0.008, spread=0.04,
                  alternate=(118, 112, 108))
BATH_TILE = courses((196, 214, 220), (150, 166, 172), 0.3, 0.3, offset=0, spread=0.05)
PAVING = courses((172, 166, 154), (128, 124, 112), 0.42, 0.28, joints=0.02, spread=0.16)
GRAVEL = courses((176, 168, 150), (140, 133, 118), 0.05, 0.05, joints=0.006, spread=0.14)
BRICK = courses((168, 88, 66), (186, 176, 164), 0.25, 0.085, joints=0.012)
LEAD = plain((110, 112, 112), 0.08)



def checkered(s, t):
    """A target: quarters in black and white around its centre."""
    dark = (s < TARGET_SIZE / 2) == (t < TARGET_SIZE / 2)
    return np.where(dark[:, None], np.float32((28, 28, 30)), np.float32((240, 240, 238)))
