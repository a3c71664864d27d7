#!/usr/bin/env python3
"""Plots depth and sea water temperature of a dive: plot_depth_temperature.py dive.nc4 dive.png

The .nc4 comes from: unserialize -N -O dive
"""
import sys

import matplotlib

matplotlib.use("Agg")  # into a file, without a screen
import matplotlib.pyplot as plt
import xarray

source, picture = sys.argv[1:]
dive = xarray.open_dataset(source)  # the standard quantities are in the root group; times become datetime64

figure, (upper, lower) = plt.subplots(2, sharex=True, figsize=(10, 6))
dive["depth"].plot(ax=upper)
upper.invert_yaxis()
dive["sea_water_temperature"].plot(ax=lower, color="tab:red")
for axes in (upper, lower):
    axes.set_xlabel("")
lower.set_xlabel("time (UTC)")
figure.savefig(picture, dpi=120, bbox_inches="tight")
