"""Compares a .mat and a .h5 with the text dump of the same log, value for value: check_matlab.py DUMP MAT H5

Prints what differs; the last line is the number of samples compared.
"""
import re
import sys

import h5py
import numpy

from dump import Dump

EPOCH = 719529  # the first of January 1970 as Matlab counts days


def leaves_of(file):
    """By logged name: the group with the value, the units and the time."""
    leaves = {}
    file.visititems(lambda _, item: leaves.update({item.attrs["name"].decode(): item} if "name" in item.attrs else {}))
    return leaves


def texts_of(value, file):
    if h5py.check_ref_dtype(value.dtype) is None:
        return [text.decode() for text in value[0]]
    cells = [file[reference] for reference in value[0]]
    return ["" if "MATLAB_empty" in cell.attrs else cell[:].tobytes().decode("utf-16-le") for cell in cells]


def first_lines(texts):
    """What the dump's line of an entry shows."""
    return [text.split("\n")[0] for text in texts]


def is_equal(value, file, texts):
    if value.dtype != float:
        return all(re.fullmatch(r"\d+ bytes of .*", text) for text in texts) or first_lines(texts_of(value, file)) == texts
    if value.shape[0] > 1 or value.ndim > 2:
        return value.shape[-1] == len(texts)
    units = " " + value.attrs["units"].decode()
    rows = [(i, text[:-len(units)]) for i, text in enumerate(texts) if text.endswith(units)]
    found, expected = value[0][[i for i, _ in rows]], numpy.array([float(text) for _, text in rows])
    absolute = 6e-7 if "." in texts[0] else 1  # integers are dumped truncated, in whatever unit
    return len(rows) > 0 and numpy.allclose(found, expected, rtol=1e-6, atol=absolute, equal_nan=True)


def compare(samples, path, seconds_of):
    compared = 0
    with h5py.File(path) as file:
        for name, leaf in leaves_of(file).items():
            if name not in samples:
                continue
            times, texts = zip(*samples[name])
            if not numpy.allclose(seconds_of(leaf["time"][0]), times, rtol=0, atol=6e-4):
                print(path, name, "has other times")
            elif not is_equal(leaf["value"], file, list(texts)):
                print(path, name, "has other values")
            compared += len(texts)
    return compared


logged = Dump(sys.argv[1]).samples
count = compare(logged, sys.argv[2], lambda days: (days - EPOCH) * 86400)
print(count + compare(logged, sys.argv[3], lambda seconds: seconds))
