"""Why a page differs from ezdxf's picture by more than the share MOST of its ink; each pair was looked at.

A page is named by its drawing and its layout, both as patterns; the first row that fits counts. A page above MOST without a
row fails all_drawings.py, and so does one that can't be compared.
"""
import fnmatch

MOST = 0.2  # share of differing ink

PAGES = [
]


def reason_for(drawing, layout):
    return next((reason for file, tab, reason in PAGES if fnmatch.fnmatchcase(drawing, file) and fnmatch.fnmatchcase(layout, tab)),
                None)
