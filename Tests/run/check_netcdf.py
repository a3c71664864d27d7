"""Compares a .nc and a .nc4 with the text dump of the same log, value for value: check_netcdf.py DUMP NC NC4

From the dump the series of each variable and the rows of the table are built anew.
Prints what differs; the last line is the number of values compared.
"""
import re
import sys

import netCDF4
import numpy

from dump import Dump

MILLISECONDS = 6e-4  # dumped with three decimals
compared = 0


def differ(what, *values):
    print(what, "differs:", *values)


def same(what, found, expected, absolute=0.0):
    """Numbers are dumped with six decimals, or as single-precision floats are."""
    global compared
    found, expected = numpy.ma.filled(found, numpy.nan).astype(float), numpy.array(expected, float)
    compared += expected.size
    if found.shape != expected.shape:
        differ(what, found.shape, expected.shape)
    elif not numpy.allclose(found, expected, rtol=1e-6, atol=max(6e-7, absolute), equal_nan=True):
        differ(what, found, expected)


def number(text):
    return float(text.split(" ")[0])


def is_number(text):
    return re.match(r"^(-?[\d.]+|-?inf|nan)( \S+)?$", text) is not None


def check_series(dump, variable, times):
    name = variable.name
    samples = dump.samples[name]
    same(name + " time", times[:], [time for time, _ in samples], MILLISECONDS)
    texts = [text for _, text in samples]
    if variable.dtype is str:
        if [text.split("\n")[0] for text in variable[:]] != texts:
            differ(name, variable[:], texts)
    elif len(variable.shape) > 1:
        same(name + " bytes", [variable[0].nbytes] * len(texts), [number(text) for text in texts])
    elif all(map(is_number, texts)):
        same(name, variable[:], [number(text) for text in texts])


def check_nc4(dump, path):
    names = set()
    with netCDF4.Dataset(path) as file:
        for group in [file, *file.groups.values()]:
            for name, variable in group.variables.items():
                if name == "trajectory_id" or name.endswith("_time") and name[:-5] in group.variables:
                    continue
                names.add(name)
                check_series(dump, variable, group.variables[name + "_time"])
    missing = [name for name in dump.samples if name not in names and "durationOfLastRun" not in name]
    if missing:
        differ("names", sorted(missing))


def check_nc(dump, path):
    with netCDF4.Dataset(path) as file:
        same("Time", file["Time"][:], [time for time, _ in dump.rows], MILLISECONDS)
        for name, variable in file.variables.items():
            if name in ("Time", "trajectory_id"):
                continue
            before = "nan" if variable.dtype.kind == "f" else "0"
            texts = [row.get(name, before) for _, row in dump.rows]
            same(name, variable[:], [number(text) for text in texts])
        for name in file.ncattrs():
            samples = dump.samples.get(name)
            if samples and isinstance(file.getncattr(name), str):
                if file.getncattr(name).split("\n")[0] != samples[-1][1]:
                    differ(name, file.getncattr(name), samples[-1][1])
            elif samples:
                same(name, numpy.array([file.getncattr(name)]), [number(samples[-1][1])])


dump = Dump(sys.argv[1])
check_nc(dump, sys.argv[2])
check_nc4(dump, sys.argv[3])
print(compared)
