#!/usr/bin/env python3
"""Draws the track of a dive, from above and in profile, with its markers: plot_track.py dive.kml track.png

The .kml comes from: unserialize -k -O dive
"""
import math
import sys
import xml.etree.ElementTree as ElementTree

import matplotlib

matplotlib.use("Agg")  # into a file, without a screen
import matplotlib.pyplot as plt
from matplotlib.collections import LineCollection

KML = "{http://www.opengis.net/kml/2.2}"
METRES_PER_DEGREE = math.radians(1) * 6371000
MARKERS = {"start": ("^", "tab:green", 90), "end": ("X", "black", 90), "error": ("o", "tab:orange", 25),
           "important": ("s", "tab:blue", 30), "critical": ("D", "tab:red", 40), "fault": ("*", "tab:purple", 80)}


def places(element):
    """The (longitude, latitude, altitude) of a Point or LineString."""
    texts = element.find(KML + "coordinates").text.split()
    return [tuple(map(float, text.split(","))) for text in texts]


def span(numbers, slack):
    """Where the numbers lie, but for some that damage put elsewhere: around the middle half of them."""
    low, middle, high = (sorted(numbers)[round(share * (len(numbers) - 1))] for share in (0.25, 0.5, 0.75))
    reach = 3 * (high - low) + slack
    return middle - reach, middle + reach


source, picture = sys.argv[1:]
document = ElementTree.parse(source).getroot().find(KML + "Document")
lines = [places(line) for line in document.iter(KML + "LineString")]
marks = [(mark.findtext(KML + "styleUrl", "#")[1:], places(mark.find(KML + "Point"))[0])
         for mark in document.findall(KML + "Placemark") if mark.find(KML + "Point") is not None]
if not lines:
    sys.exit(source + " holds no track")

spans = [span(numbers, slack)
         for numbers, slack in zip(zip(*(place for line in lines for place in line)), (0.1, 0.1, 100))]


def is_credible(place):
    return all(low <= number <= high for number, (low, high) in zip(place, spans))


track = [place for line in lines for place in line if is_credible(place)]
marks = [(style, place) for style, place in marks if is_credible(place)]

# Metres east and north of the start.
longitude0, latitude0, _ = track[0]
shrink = math.cos(math.radians(latitude0))


def metres(place):
    return ((place[0] - longitude0) * METRES_PER_DEGREE * shrink, (place[1] - latitude0) * METRES_PER_DEGREE, place[2])


points = [metres(place) for place in track]
plan = [point[:2] for point in points]
altitudes = [point[2] for point in points]
way = [0.0]
for here, there in zip(plan, plan[1:]):
    way.append(way[-1] + math.dist(here, there))

figure, (above, profile) = plt.subplots(1, 2, figsize=(10, 4.5), width_ratios=(1, 1.4), layout="constrained")
shades = LineCollection(list(zip(plan, plan[1:])), array=[-a for a in altitudes[:-1]], cmap="viridis_r", linewidth=3)
above.add_collection(shades)
above.autoscale()
above.set_aspect("equal", adjustable="datalim")
above.set_xlabel("east of the start (m)")
above.set_ylabel("north of the start (m)")
figure.colorbar(shades, ax=above, label="depth (m)")
profile.plot(way, altitudes, color="tab:cyan", zorder=1)
profile.set_xlabel("distance along the track (m)")
profile.set_ylabel("altitude (m)")
for style, place in marks:
    if style not in MARKERS:
        continue
    shape, colour, size = MARKERS[style]
    above.scatter(*metres(place)[:2], marker=shape, color=colour, s=size, zorder=3)
    nearest = min(range(len(points)), key=lambda i: math.dist(points[i], metres(place)))
    label = style if style not in profile.get_legend_handles_labels()[1] else None
    profile.scatter(way[nearest], place[2], marker=shape, color=colour, s=size, zorder=3, label=label)
profile.legend(loc="lower center", bbox_to_anchor=(0.5, 1), ncols=len(MARKERS), fontsize="small", frameon=False,
               handletextpad=0, columnspacing=1)
for axes in (above, profile):
    axes.grid(alpha=0.3)
above.set_title(document.find(KML + "name").text)
figure.savefig(picture, dpi=100, metadata={"Software": None})
