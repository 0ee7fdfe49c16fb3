#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the plotter configurations that a CAD host of releases 15 and 16 reads from our own readable ones.

    make_pc3.py SOURCE TARGET      from each .pc3 file of the folder SOURCE, one of its name in the folder TARGET

The container is that of plot style tables (see packaging/make_plot_styles.py); the text inside is of five groups: who
plots (meta), on what (media), where to (io), how finely (res_color_mem), and the driver's own wishes (custom, none here).
docs/pc3.md says what of it is known and what isn't.
"""
import os
import struct
import sys
import zlib

DEFAULT_MEDIUM = "ANSI_A_(11.00_x_8.50_Inches)"
FILE, SOLID_COLORS = 2, 1 << 24


def read_ours(path):
    """The head's items, and the media as name, width, height (mm)."""
    head, media = {}, {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            line = line.strip()
            if not line or line.startswith("#") or line == "[Media]":
                continue
            fields = [field.strip() for field in line.split("|")]
            if len(fields) > 1:
                media[fields[0]] = (float(fields[2]), float(fields[3]))
            else:
                name, value = line.split(":", 1)
                head[name] = value.strip()
    return head, media


def value_text(value):
    if isinstance(value, bool):
        return "TRUE" if value else "FALSE"
    return '"' + value if isinstance(value, str) else str(value)


def group_text(name, values, depth=0):
    """Texts have a quotation mark in front and none behind."""
    blanks = " " * depth
    lines = [f"{blanks}{name}{{"]
    for key, value in values.items():
        if isinstance(value, dict):
            lines.append(group_text(key, value, depth + 1))
        else:
            lines.append(f"{blanks} {key}={value_text(value)}")
    return "\n".join(lines + [blanks + "}"])


def meta(head):
    model = head["Device"]
    return {"user_defined_model_pathname": "", "user_defined_model_basename": "", "driver_pathname": head["Driver"],
            "driver_version": "", "driver_tag_line": "", "toolkit_version": 1, "driver_type": 2,
            "canonical_family_name": "Adobe", "show_custom_first": False, "truetype_as_text": True,
            "canonical_model_name": "Postscript Level 2", "localized_family_name": "Adobe", "localized_model_name": model,
            "file_only": False, "model_abilities": "", "udm_description": "", "win_device_name": "", "win_driver_name": "",
            "short_net_name": "", "friendly_net_name": "", "dm_driver_version": 0, "default_system_cfg": False,
            "platform": "", "locale": "", "config_description": "Makes the pages of Sheetmaker PDF",
            "config_autospool": False}


def media(head, sheets):
    width, height = sheets[DEFAULT_MEDIUM]
    left, bottom, right, top = (float(strip) for strip in head["Margins"].split())
    area = {"printable_bounds_llx": left, "printable_bounds_lly": bottom, "printable_bounds_urx": width - right,
            "printable_bounds_ury": height - top}
    described = area | {"printable_area": round((width - left - right) * (height - bottom - top), 5), "dimensional": True,
                        "media_bounds": {"urx": width, "ury": height}}
    return ({"selection_method": 2, "type": "", "dm_orientation": 1 if height >= width else 2}
            | {"actual_" + name: value for name, value in area.items()}
            | {"number_of_copies": 1, "size": {"name": DEFAULT_MEDIUM, "group": 4, "landscape_mode": width > height,
                                               "media_description": described}})


def colors(head):
    dots = float(head["Resolution"])
    return {"name": "Color", "num_colors": SOLID_COLORS, "color_depth": 24, "num_undithered_colors": SOLID_COLORS,
            "color_system": 1, "dm_color": 0, "icm_method": 1, "icm_intent": 1, "hard_soft": 2, "lines_overwrite": True,
            "resolution": {"name": f"{int(dots)} x {int(dots)} DPI"}
            | {f"{kind}_resolution_{axis}": dots for kind in ("phys", "addr", "effective") for axis in "xy"}}


def packed(text):
    plain = text.encode("ascii")
    stream = zlib.compress(plain, 9)
    return (b"PIAFILEVERSION_2.0,PC3VER1,compress\r\npmzlibcodec"
            + struct.pack("<3I", zlib.adler32(stream), len(plain), len(stream)) + stream)


def host_file(path):
    head, sheets = read_ours(path)
    groups = {"meta": meta(head), "media": media(head, sheets),
              "io": {"type": FILE, "pathname": "", "allsysvalid": False, "plot_to_file": True},
              "res_color_mem": colors(head), "custom": {}}
    return packed("".join(group_text(name, values) + "\n" for name, values in groups.items()))


def main(source, target):
    os.makedirs(target, exist_ok=True)
    for name in sorted(os.listdir(source)):
        if name.endswith(".pc3"):
            with open(os.path.join(target, name), "wb") as file:
                file.write(host_file(os.path.join(source, name)))


if __name__ == "__main__":
    main(*sys.argv[1:])
