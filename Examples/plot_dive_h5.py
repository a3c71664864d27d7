#!/usr/bin/env python3
"""Plots the depth of a dive, coloured by the temperature of the water: plot_dive_h5.py dive.h5 dive.png

The .h5 comes from: unserialize -H -O dive
"""
import sys

import h5py
import matplotlib

matplotlib.use("Agg")  # into a file, without a screen
import matplotlib.pyplot as plt
import numpy

source, picture = sys.argv[1:]
with h5py.File(source) as dive:
    depth, temperature = dive["depth"], dive["sea_water_temperature"]
    seconds = depth["time"][0]
    degrees = numpy.interp(seconds, temperature["time"][0], temperature["value"][0])
    figure, axes = plt.subplots(figsize=(10, 5))
    points = axes.scatter(seconds.astype("datetime64[s]"), depth["value"][0], 8, degrees)
    axes.set_xlabel("time (UTC)")
    axes.set_ylabel("depth (" + depth["value"].attrs["units"].decode() + ")")
    axes.invert_yaxis()
    bar = figure.colorbar(points)
    bar.set_label("sea water temperature (" + temperature["value"].attrs["units"].decode() + ")")
figure.savefig(picture, dpi=120)
