"""What each side flies by month, and what a nation takes of it."""

# Up to and including a month, yyyymm: the types with their shares of a draw.
ALLIED = [
    (191602, "dh2 nieuport11"),
    (191605, "dh2 nieuport11 nieuport17"),
    (191607, "dh2 nieuport17"),
    (191609, "nieuport17 spad7early"),
    (191611, "soppup spad7early"),
    (191702, "soppup soptriplane"),
    (191703, "se5a se5a soppup soptriplane"),
    (191705, "se5a se5a soppup soptriplane spad7"),
    (191707, "se5a se5a se5a sopcamel sopcamel spad13 spad13 soppup soptriplane spad7"),
    (191801, "nieuport28 se5a sopcamel spad13"),
    (999912, "sopcamel sopcamel nieuport28 se5a sopdolphin spad13"),
]
CENTRAL = [
    (191604, "fokkere3"),
    (191606, "fokkere3 fokkere3 halberstadtd2"),
    (191609, "halberstadtd2 halberstadtd2 fokkere3"),
    (191610, "albatrosd2 halberstadtd2"),
    (191612, "albatrosd2"),
    (191701, "albatrosd2 albatrosd2late"),
    (191702, "albatrosd2late"),
    (191703, "albatrosd2late albatrosd3"),
    (191706, "albatrosd3"),
    (191707, "albatrosd5"),
    (191708, "albatrosd5 pfalzd3a"),
    (191709, "albatrosd5 fokkerdr1 pfalzd3a"),
    (191712, " ".join(["fokkerdr1"] * 7 + ["pfalzd3a"] * 2 + ["albatrosd5"])),
    (191804, "fokkerdr1"),
    (191806, "fokkerd7"),
    (191808, "fokkerd7 fokkerd7f pfalzd12"),
    (191812, "fokkerd7f fokkerd8 pfalzd12"),
    (999912, "fokkerd8"),
]
NOT_FRENCH = "soppup soptriplane sopcamel sopdolphin se5a dh2 nieuport28".split()
AMERICAN = "sopcamel nieuport28 spad13".split()
ONE_MONTH_BACK = {800, 825, 850, 875, 900, 910, 920, 930, 940, 950}


def plane_for_side(allied, year, month, random):
    for until, planes in ALLIED if allied else CENTRAL:
        if year * 100 + month <= until:
            planes = planes.split()
            return planes[random.integer(0, len(planes) - 1)]
    raise ValueError("no row for this month")


def nation_plane(nation, year, month, random):
    working = (year, month)
    for counter in range(600, 1000):
        if counter in ONE_MONTH_BACK:
            working = (working[0] - 1, 12) if working[1] == 1 else (working[0], working[1] - 1)
        if counter == 995:
            working = (year, month)
        plane = plane_for_side(nation <= 499, *working, random)
        if nation == 101 and plane in NOT_FRENCH or nation == 103 and plane not in AMERICAN:
            continue
        break
    return plane
