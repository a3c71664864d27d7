#!/usr/bin/env python3
"""Plots depth and sea water temperature of a dive: plot_depth_temperature.py dive.nc4 dive.png

The .nc4 comes from: unserialize -N -O dive
"""
import sys

import matplotlib

matplotlib.use("Agg")  # into a file, without a screen
import matplotlib.pyplot as plt
import xarray



def credible(series, low, high):
    """The samples that the sea can have given, at a time of the dive: of a damaged log some are neither."""
    time = series[series.dims[0]].astype("int64")
    early, middle, late = time.quantile([0.25, 0.5, 0.75])
    return series[(abs(time - middle) <= 1.5 * (late - early)).values & ((series >= low) & (series <= high)).values]


source, picture = sys.argv[1:]
dive = xarray.open_dataset(source)  # the standard quantities are in the root group; times become datetime64

figure, (upper, lower) = plt.subplots(2, sharex=True, figsize=(10, 6))
credible(dive["depth"], -10, 12000).plot(ax=upper)
upper.invert_yaxis()
credible(dive["sea_water_temperature"], -5, 50).plot(ax=lower, color="tab:red")
for axes in (upper, lower):
    axes.set_xlabel("")
lower.set_xlabel("time (UTC)")
figure.savefig(picture, dpi=120, bbox_inches="tight")
