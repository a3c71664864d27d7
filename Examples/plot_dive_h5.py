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



def credible(series, low, high):
    """Times and values that the sea can have given, at a time of the dive: of a damaged log some are neither."""
    time, value = series["time"][0], series["value"][0]
    early, middle, late = numpy.quantile(time, [0.25, 0.5, 0.75])
    kept = (abs(time - middle) <= 1.5 * (late - early)) & (value >= low) & (value <= high)
    order = numpy.argsort(time[kept])
    return time[kept][order], value[kept][order]


source, picture = sys.argv[1:]
with h5py.File(source) as dive:
    depth, temperature = dive["depth"], dive["sea_water_temperature"]
    seconds, metres = credible(depth, -10, 12000)
    degrees = numpy.interp(seconds, *credible(temperature, -5, 50))
    figure, axes = plt.subplots(figsize=(10, 5))
    points = axes.scatter(seconds.astype("datetime64[s]"), metres, 8, degrees)
    axes.set_xlabel("time (UTC)")
    axes.set_ylabel("depth (" + depth["value"].attrs["units"].decode() + ")")
    axes.invert_yaxis()
    bar = figure.colorbar(points)
    bar.set_label("sea water temperature (" + temperature["value"].attrs["units"].decode() + ")")
figure.savefig(picture, dpi=120)
