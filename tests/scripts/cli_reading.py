"""What velquist-cli must say of a setup, read here from its name and bytes alone."""
import math
import os
import re
import struct
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DATA = ROOT / 'assets' / 'program'
MAGIC = b'PGTS'
ALL_LONG = ['1965', '1966', '1967', '1969']
SHORT, LONG = 264, 272

# slot -> (data row, byte offset)
ROWS = ([16, 17, 18, 19, 20, 21, 22, 23] + list(range(24, 32)) + list(range(32, 36)) +
        list(range(36, 40)) + [40, 41, 42, 43, 44, 45, 47, 48, 49, 51, 52] + list(range(0, 7)) +
        list(range(7, 14)) + [14, 15, 46])
OFFSETS = ([92 + 4 * i for i in range(20)] + [204 + 4 * i for i in range(10)] + [248, 252, 256, 261, 265] +
           [20 + 4 * i for i in range(7)] + [56 + 4 * i for i in range(7)] + [84, 88, 244])
WHOLE = set(range(8, 16)) | {32, 51} | set(range(42, 49))
METRIC = {**{s: 6.8947 for s in range(4)}, **{s: 1.7513 for s in [4, 5, 6, 7, 26, 27]},
          **{s: 2.54 for s in [20, 21, 22, 23, 24, 25, 28, 29]}, 30: 3.7854}


def single(number):
    return struct.unpack('<f', struct.pack('<f', number))[0]


class Year:
    def __init__(self, name, setup_data, gear_data):
        rows = [line.split(',') for line in (DATA / setup_data).read_text('latin-1').splitlines()]
        self.limits = [(single(float(r[1])), single(float(r[3]))) for r in rows]
        gears = [line.split(',') for line in (DATA / gear_data).read_text('latin-1').splitlines()]
        self.ratios = [single(float(g[2])) for g in gears]
        self.texts = [g[1] for g in gears]
        source = (ROOT / 'src/data/ChassisCatalogue.cpp').read_text()
        cars = re.search(rf'kCars{name} =.*?\n}}\);', source, re.S).group(0)
        self.cars = {m[1]: m[2] for m in re.finditer(r'\{"(\w\w)", "([^"]*)"', cars)}
        junior = re.search(rf'kJuniors{name} =.*?\n}}}};', source, re.S).group(0)
        count = re.compile(r'\{([^{}"]*)\}')
        gear_count = [int(m.split(',')[6]) for m in count.findall(cars)]
        self.gear_counts = dict(zip(self.cars, gear_count))
        self.junior_gears = [int(m.split(',')[6]) for m in count.findall(junior)]

    def gear_count(self, code, formula):
        return self.gear_counts[code] if formula == 1 else self.junior_gears[formula - 2]


YEARS = {'1967': Year('1967', '67 Setup Data.ini', '67 Gear Data.ini'),
         '1965': Year('1965', '65 Setup Data.ini', '65 Gear Data.ini'),
         '1966': Year('1966', '65 Setup Data.ini', '65 Gear Data.ini'),
         '1969': Year('1969', '65 Setup Data.ini', '65 Gear Data.ini'),
         'GT': Year('GT', 'GT Setup Data.ini', '65 Gear Data.ini')}


class Reading:
    """What the contract says of a file, by its name and bytes alone."""

    def __init__(self, path, year=None):
        self.path = os.fspath(path)
        self.data = Path(path).read_bytes()
        name = os.path.basename(self.path)
        self.code = name[-3:-1]
        self.years = self.years_of()
        if len(self.years) > 1 and year:
            self.years = [year]
        self.read_as = self.years[0] if len(self.years) == 1 else '1967'
        self.year = YEARS[self.read_as]
        self.formula = int(name[-1]) if name[-1] in '123' else None
        if self.read_as == 'GT':
            self.formula = 1
        known = self.code in self.year.cars
        self.chassis = {'code': self.code, 'name': self.year.cars[self.code]} if known else None
        self.layout = {SHORT: 'short', LONG: 'long'}.get(len(self.data))

    def years_of(self):
        for year in ['1966', 'GT']:
            if self.code in YEARS[year].cars and self.code not in YEARS['1967'].cars:
                return [year]
        if len(self.data) != LONG:
            return ['1965', '1967']
        rear = self.raw(34)
        return ['1969'] if 0 <= rear <= 16 else ALL_LONG

    def raw(self, slot):
        return struct.unpack_from('<i' if slot in WHOLE else '<f', self.data, OFFSETS[slot])[0]

    def slots(self):
        values = [single(self.raw(s)) if s not in (33, 34) or len(self.data) == LONG else -1.0
                  for s in range(52)]
        if self.read_as != '1969':
            values[33] = values[34] = -1.0
        for pair in range(7):
            wanted = values[35 + pair]
            wanted = single(round(wanted * 1000) / 1000) if math.isfinite(wanted) else wanted
            if self.year.ratios[int(values[42 + pair])] == wanted:
                continue
            for row, ratio in enumerate(self.year.ratios):
                if not ratio <= wanted:
                    break
                values[42 + pair] = float(row)
        return values

    def problems(self):
        if self.data[:4] != MAGIC:
            return [('not-a-setup', None)]
        if self.layout is None:
            return [('size', None)]
        is_long = self.layout == 'long'
        found = []
        kind, size = struct.unpack_from('<ii', self.data, 4)
        found += [('header', None)] * ((kind != (4 if is_long else 3)) + (size != (257 if is_long else 249)))
        there = [s for s in range(52) if is_long or s not in (33, 34)]
        found += [('not-a-number', s) for s in there if not math.isfinite(self.raw(s))]
        for s in there:
            low, high = self.year.limits[ROWS[s]]
            if (s not in (33, 34) or self.read_as == '1969') and math.isfinite(self.raw(s)):
                if not low <= self.raw(s) <= high:
                    found.append(('outside-limits', s))
        for pair in range(7):
            ratio, row = self.raw(35 + pair), self.raw(42 + pair)
            if math.isfinite(ratio) and not (
                    0 <= row < 90 and self.year.ratios[row] == single(round(ratio * 1000) / 1000)):
                found.append(('gear-id', 42 + pair))
        if self.chassis and self.formula:
            for gear in range(1, self.year.gear_count(self.code, self.formula)):
                before, ratio = self.raw(34 + gear), self.raw(35 + gear)
                if math.isfinite(before) and math.isfinite(ratio) and ratio >= before:
                    found.append(('gear-order', 42 + gear))
        if self.data[260]:
            found += [('symmetry', s) for s in range(0, 24, 2)
                      if self.raw(s) != self.raw(s + 1) and not (
                          math.isnan(self.raw(s)) and math.isnan(self.raw(s + 1)))]
        if is_long and self.read_as != '1969':
            found += [('wings', s) for s in (33, 34) if self.raw(s) != -1 and math.isfinite(self.raw(s))]
        return found


def has_extension(path):
    name = os.path.basename(path)
    return bool(re.fullmatch(r'.*\...[123]', name)) and any(name[-3:-1] in y.cars for y in YEARS.values())
