"""Which figure each enemy is, and in which colours. The order is that of the enemy table."""

import beasts
import haunts
import undead
from beasts import glow
from solid import Material, capsule, cylinder, ellipsoid, sphere, torus
from undead import BONE, GOLD, IRON, WEED, WOOD

SIDE, BOSS_SIDE = 192, 256

PAPER = Material((0.58, 0.54, 0.43), (0.86, 0.81, 0.67), 8, 0.2)
ICE = Material((0.45, 0.60, 0.68), (0.80, 0.92, 0.98), 6, 0.3, 1.0, 40)
OLD_BONE = Material((0.34, 0.28, 0.20), (0.66, 0.58, 0.44), 8, 0.6, 0.12, 20)
FLAME = glow((1.0, 0.72, 0.22))


def silt_slime():
    reeds = [(capsule((x, 0.30, z), (x + lean, 0.98, z - 0.05), 0.030, 0.014), WEED)
             for x, z, lean in ((-0.16, 0.05, -0.10), (0.02, -0.02, 0.03), (0.14, 0.06, 0.14))]
    reeds += [(ellipsoid((-0.235, 0.86, 0.01), (0.045, 0.12, 0.045), (0, 0, 8)), WOOD)]
    bones = [(capsule((0.36, -0.40, 0.40), (0.56, -0.18, 0.44), 0.036), BONE)]
    bones += [(sphere((0.36 + dx, -0.40 + dy, 0.40), 0.048), BONE) for dx, dy in ((-0.02, 0.03),
                                                                               (0.03, -0.03))]
    bones += [(sphere((0.56 + dx, -0.18 + dy, 0.44), 0.046), BONE) for dx, dy in ((-0.03, 0.03),
                                                                               (0.03, -0.02))]
    return beasts.slime((0.12, 0.12, 0.08), (0.40, 0.38, 0.26), bones, (), reeds)


def honey_slime():
    comb = [(cylinder((x, y, z), 0.085, 0.05, 0.01, (74, 0, 0)), PAPER)
            for x, y, z in ((-0.30, -0.32, 0.44), (-0.14, -0.40, 0.50), (-0.28, -0.48, 0.48))]
    bees = []
    stripe = Material((0.05, 0.04, 0.02), (0.14, 0.10, 0.04), 9, 0.4, 0.3)
    yellow = Material((0.66, 0.46, 0.08), (0.95, 0.76, 0.24), 9, 0.6, 0.2)
    gauze = Material((0.62, 0.66, 0.68), (0.88, 0.92, 0.95), 8, 0, 0.5)
    for x, y, z in ((-0.52, 0.52, 0.1), (0.50, 0.40, 0.2), (0.30, 0.80, 0.0), (-0.26, 0.88, 0.0)):
        bees.append((ellipsoid((x, y, z), (0.085, 0.055, 0.055), (0, 0, 16)), yellow))
        for k in (-1, 1):
            bees.append((torus((x + 0.032 * k, y + 0.010 * k, z), 0.050, 0.014, (0, 90, 16)), stripe))
            bees.append((ellipsoid((x + 0.03 * k, y + 0.085, z), (0.030, 0.062, 0.012), (0, 0, -k * 24)), gauze))
    return beasts.slime((0.52, 0.30, 0.04), (0.94, 0.68, 0.20), comb, ((0.30, 0.16, 0.30, 0.05),
                                                                       (0.10, -0.30, 0.56, 0.04)), bees)


def grave_eel():
    soil = Material((0.10, 0.075, 0.05), (0.30, 0.23, 0.16), 7, 1.4, 0.05)
    mound = [(ellipsoid((x, -0.88, z), (w, h, w * 0.8)), soil) for x, z, w, h in (
        (0.0, -0.2, 0.62, 0.14), (-0.40, 0.0, 0.24, 0.13), (0.44, 0.06, 0.26, 0.15), (0.10, 0.2, 0.30, 0.11))]
    mound += [(capsule((-0.50, -0.74, 0.16), (-0.26, -0.70, 0.24), 0.032), BONE)]
    return beasts.eel((0.16, 0.13, 0.11), (0.40, 0.33, 0.27), (0.66, 0.58, 0.44), None, mound)


def frost_knight():
    ice = [(capsule((x, y, z), (x * 1.08, y + tall, z * 0.9), wide, 0.004), ICE) for x, y, z, tall, wide in (
        (0.40, 0.36, 0.05, 0.26, 0.055), (0.32, 0.38, -0.02, 0.19, 0.045), (-0.40, 0.36, 0.05, 0.24, 0.055),
        (-0.30, 0.38, 0.0, 0.17, 0.045), (0.0, 0.86, 0.03, 0.18, 0.05), (0.10, 0.84, 0.02, 0.12, 0.04),
        (-0.10, 0.84, 0.02, 0.13, 0.04))]
    ice += [(capsule((x, -0.64, z), (x, -0.84, z), 0.035, 0.004), ICE)
            for x, z in ((-0.16, 0.28), (0.0, 0.32), (0.14, 0.29))]
    return undead.knight(((0.30, 0.38, 0.46), (0.66, 0.76, 0.84)), ((0.06, 0.10, 0.20), (0.20, 0.30, 0.48)),
                         (0.55, 0.90, 1.0), ice)


def drowned_knight():
    shell = Material((0.44, 0.42, 0.36), (0.74, 0.70, 0.60), 9, 0.9, 0.2)
    growth = [(sphere((x, y, z), r), shell) for x, y, z, r in (
        (0.14, 0.30, 0.21, 0.045), (0.20, 0.20, 0.20, 0.036), (-0.16, 0.10, 0.21, 0.040), (0.36, 0.40, 0.10, 0.05),
        (0.12, 0.78, 0.13, 0.034), (-0.34, 0.40, 0.10, 0.045), (-0.48, 0.14, 0.50, 0.04), (-0.30, -0.16, 0.50, 0.035))]
    for x, y, z, drop in ((-0.12, 0.56, 0.20, 0.34), (0.16, 0.52, 0.14, 0.44), (0.42, 0.30, 0.12, 0.36),
                          (-0.40, 0.26, 0.12, 0.30), (0.52, -0.10, 0.48, 0.34), (-0.30, 0.20, 0.50, 0.42)):
        growth.append((capsule((x, y, z), (x + 0.03, y - drop, z + 0.06), 0.034, 0.008), WEED))
    return undead.knight(((0.20, 0.24, 0.20), (0.46, 0.48, 0.38)), ((0.16, 0.05, 0.05), (0.36, 0.14, 0.12)),
                         (0.45, 1.0, 0.70), growth)


def queen_moth():
    crown = [(torus((0, 0.55, 0.13), 0.085, 0.018, (76, 0, 0)), GOLD)]
    crown += [(capsule((x, 0.57, z), (x * 1.15, 0.68, z), 0.018, 0.004), GOLD)
              for x, z in ((-0.075, 0.15), (-0.03, 0.21), (0.03, 0.21), (0.075, 0.15))]
    return beasts.moth(((0.42, 0.34, 0.22), (0.74, 0.62, 0.42)), ((0.40, 0.26, 0.10), (0.80, 0.60, 0.28)),
                       ((0.34, 0.16, 0.10), (0.70, 0.38, 0.20)), (GOLD, glow((0.45, 0.95, 0.85), 0.9)), crown)


def grey_moth(dark, light, heart):
    pale = Material(tuple(c * 1.6 for c in dark), tuple(min(1.0, c * 2.0) for c in light), 9)
    return beasts.moth((dark, light), (dark, light), (tuple(c * 0.8 for c in dark),
                                                      tuple(c * 0.8 for c in light)), (pale, heart))


ENEMIES = {
    "mire-rat": lambda: beasts.rat((0.17, 0.12, 0.08), (0.46, 0.36, 0.25)),
    "drowned-novice": lambda: undead.drowned(((0.26, 0.32, 0.28), (0.56, 0.60, 0.50)),
                                             ((0.16, 0.13, 0.10), (0.38, 0.31, 0.23)), bucket=True),
    "font-toad": lambda: beasts.toad((0.14, 0.18, 0.09), (0.42, 0.46, 0.20), (0.68, 0.63, 0.42)),
    "cloister-bat": lambda: beasts.bat((0.14, 0.10, 0.09), (0.38, 0.28, 0.23), (0.46, 0.25, 0.20)),
    "silt-slime": silt_slime,
    "candle-wisp": lambda: haunts.wisp((1.0, 0.45, 0.10), (1.0, 0.90, 0.45)),
    "reed-crab": lambda: beasts.crab((0.24, 0.26, 0.14), (0.54, 0.52, 0.30), board=(WOOD, PAPER)),
    "bone-acolyte": lambda: undead.skeleton(((0.30, 0.29, 0.26), (0.62, 0.59, 0.52)), candle=FLAME),
    "choir-spider": lambda: beasts.spider((0.12, 0.10, 0.09), (0.34, 0.28, 0.24), (0.76, 0.66, 0.42), web=True),
    "drowned-brother": lambda: undead.drowned(((0.22, 0.30, 0.30), (0.52, 0.60, 0.54)),
                                              ((0.10, 0.09, 0.09), (0.28, 0.25, 0.22)), cowl=True),
    "ink-moth": lambda: grey_moth((0.07, 0.07, 0.11), (0.24, 0.24, 0.33), glow((0.60, 0.72, 0.95), 0.7)),
    "refectory-mimic": lambda: haunts.mimic(((0.20, 0.12, 0.06), (0.44, 0.28, 0.14)), IRON),
    "hollow-habit": lambda: undead.habit(((0.13, 0.12, 0.13), (0.34, 0.33, 0.36)), (0.55, 0.92, 1.0)),
    "grave-rat": lambda: beasts.rat((0.11, 0.11, 0.12), (0.34, 0.33, 0.34), (0.65, 1.0, 0.45), PAPER),
    "bone-monk": lambda: undead.skeleton(((0.12, 0.09, 0.07), (0.32, 0.25, 0.19)), "flail", cowl=True,
                                         eye=(1.0, 0.40, 0.20)),
    "skull-swarm": lambda: undead.swarm(),
    "wax-saint": lambda: haunts.saint(((0.58, 0.49, 0.33), (0.93, 0.86, 0.68))),
    "corpse-candle": lambda: haunts.wisp((0.25, 0.55, 0.82), (0.70, 0.95, 1.0), False, BONE),
    "crypt-ghoul": lambda: undead.ghoul(((0.27, 0.24, 0.22), (0.56, 0.50, 0.44)),
                                        ((0.14, 0.12, 0.10), (0.32, 0.27, 0.21))),
    "marrow-spider": lambda: beasts.spider((0.34, 0.28, 0.21), (0.72, 0.64, 0.50), (0.36, 0.10, 0.08)),
    "cold-knight": frost_knight,
    "mourning-moth": lambda: grey_moth((0.05, 0.05, 0.05), (0.20, 0.19, 0.20), glow((0.95, 0.80, 0.55), 0.7)),
    "bone-crab": lambda: beasts.crab((0.36, 0.24, 0.18), (0.62, 0.46, 0.34), ribs=OLD_BONE),
    "reliquary": lambda: haunts.mimic(((0.36, 0.22, 0.06), (0.70, 0.50, 0.18)), GOLD, tongue=False, relic=True),
    "gargoyle": lambda: haunts.gargoyle(((0.27, 0.27, 0.26), (0.55, 0.53, 0.49))),
    "grue-the-sexton": lambda: undead.ghoul(((0.24, 0.27, 0.20), (0.52, 0.55, 0.41)),
                                            ((0.10, 0.08, 0.07), (0.28, 0.22, 0.17)), spade=True),
    "grave-eel": grave_eel,
    "mere-hound": lambda: beasts.hound((0.10, 0.12, 0.12), (0.32, 0.36, 0.34), WEED),
    "hedge-man": lambda: haunts.hedge_man(),
    "rot-cap": lambda: haunts.mushroom(((0.34, 0.10, 0.07), (0.68, 0.29, 0.16)), (0.80, 0.72, 0.55)),
    "lantern-eel": lambda: beasts.eel((0.06, 0.12, 0.16), (0.20, 0.36, 0.42), (0.58, 0.66, 0.56),
                                      glow((0.75, 1.0, 0.80))),
    "elder-wisp": lambda: haunts.wisp((0.35, 0.85, 0.60), (0.90, 1.0, 0.82), True, None, GOLD, 14),
    "thorn-spider": lambda: beasts.spider((0.07, 0.14, 0.06), (0.26, 0.40, 0.15), (0.70, 0.14, 0.22),
                                          Material((0.30, 0.16, 0.10), (0.58, 0.36, 0.22), 9, 0.4, 0.2)),
    "moss-gargoyle": lambda: haunts.gargoyle(((0.22, 0.24, 0.21), (0.46, 0.48, 0.40)),
                                             Material((0.08, 0.17, 0.06), (0.30, 0.44, 0.15), 10, 1.2, 0.05)),
    "honey-slime": honey_slime,
    "drowned-knight": drowned_knight,
    "queen-moth": queen_moth,
    "the-orchard-king": lambda: haunts.hedge_man(king=True),
    "choirmaster": lambda: undead.habit(((0.20, 0.06, 0.07), (0.48, 0.16, 0.16)), (1.0, 0.85, 0.45), trim=GOLD,
                                        baton=True, halo=GOLD),
    "prior-aldous": undead.prior,
}

BOSSES = {"grue-the-sexton", "queen-moth", "the-orchard-king", "prior-aldous"}
ROOM = {"grue-the-sexton": 1.10, "the-orchard-king": 1.26, "prior-aldous": 1.14, "choirmaster": 1.16,
        "reliquary": 1.06, "bone-monk": 1.02, "lantern-eel": 1.10, "thorn-spider": 1.06,
        "marrow-spider": 1.04, "choir-spider": 1.04, "reed-crab": 1.04, "bone-crab": 1.04,
        "honey-slime": 1.08, "silt-slime": 1.06, "cold-knight": 1.08}


def enemy(name):
    """Side and pixels of an enemy's picture."""
    figure, options = ENEMIES[name]()
    side = BOSS_SIDE if name in BOSSES else SIDE
    return side, figure.render(side, side, ROOM.get(name, 1.0), options.get("shadow"))
