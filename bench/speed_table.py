#!/usr/bin/env python3
"""Runs the benchmarks that the README names and prints its table of times.

usage: speed_table.py BENCHMARKS README [--write]

BENCHMARKS is the folder of built benchmark programs. With --write the table takes the place of the one
between the README's two speed marks.
"""

import json
import pathlib
import platform
import re
import subprocess
import sys

# What the table says, and the benchmarks whose times stand beside it: program, name.
ROWS = [
    ("a line of 20 characters at 48 pixels, body alone", [("text_line", "LineFill")]),
    ("the same with an edge of 8 and a soft shadow of 8", [("text_line", "LineEdgeAndSoftShadow")]),
    ("an ellipse / a rounded rectangle of 1800x1000, filled, with a pen of 8",
     [("shape", "Ellipse"), ("shape", "RoundRect")]),
    ("a star of 1000 points, filled / its outline", [("shape", "StarFill"), ("shape", "StarStroke")]),
    ("blending a frame of random keys onto a solid one / onto random ones",
     [("surface", "Copy<1>/2/0/manual_time"), ("surface", "Copy<1>/2/2/manual_time")]),
    ("through a coverage, random / a layer of text",
     [("surface", "Mask/2/2/manual_time"), ("surface", "Mask/3/0/manual_time")]),
    ("a layer of text with a picture of 256x256, read from its file, tiled / scaled",
     [("texture", "Texture/1/256"), ("texture", "Texture/2/256")]),
    ("scaling a frame to 1280x720 / to 3840x2160", [("scale", "Resize/1280/720"), ("scale", "Resize/3840/2160")]),
    ("a fill / clearing all keys / a tint / keys by brightness",
     [("pixels", "Clear"), ("pixels", "ClearKey"), ("pixels", "Tint"), ("pixels", "LuminanceKey")]),
    ("reading / writing a frame with a title on it as PICT",
     [("pict", "Read/kind:0"), ("pict", "Write/kind:0")]),
    ("reading it as TGA, raw / run-length", [("tga", "Read/mode:0"), ("tga", "Read/mode:1")]),
    ("writing it as TGA, raw / run-length", [("tga", "Write/mode:0"), ("tga", "Write/mode:1")]),
    ("reading / writing it as 24-bit BMP", [("dib", "ReadBmp"), ("dib", "WriteBmp")]),
]
MEMCPY = ("shape", "FrameMemcpy")
MARKS = re.compile(r"(<!-- speed table -->\n).*?(<!-- end of speed table -->\n)", re.DOTALL)


def measured(folder, benchmarks):
    """Milliseconds by program and name, medians of five runs; each program is run once."""
    times = {}
    for program in dict.fromkeys(program for program, _ in benchmarks):
        wanted = "|".join(re.escape(name) for of, name in benchmarks if of == program)
        command = [folder / f"{program}_bench", f"--benchmark_filter=^({wanted})$", "--benchmark_format=json",
                   "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                   "--benchmark_report_aggregates_only=true"]
        run = subprocess.run(command, capture_output=True, text=True, check=True)
        for entry in json.loads(run.stdout)["benchmarks"]:
            if entry["aggregate_name"] == "median":
                to_ms = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[entry["time_unit"]]
                times[program, entry["run_name"]] = entry["real_time"] * to_ms
    return times


def figure(milliseconds):
    return f"{milliseconds:.2g}" if milliseconds < 10 else f"{milliseconds:.0f}"


def processor():
    names = re.findall(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())
    return names[0] if names else platform.machine()


def table(folder):
    wanted = [benchmark for _, benchmarks in ROWS for benchmark in benchmarks] + [MEMCPY]
    times = measured(folder, wanted)
    commit = subprocess.run(["git", "describe", "--always", "--dirty"], capture_output=True, text=True, check=True)
    lines = [f"Commit {commit.stdout.strip()}, one thread of {processor()}, into a frame of 1920x1080 whose",
             f"memcpy takes {figure(times[MEMCPY])} ms; medians of five runs:", "", "| Work | ms |", "|---|---|"]
    for label, benchmarks in ROWS:
        lines.append(f"| {label} | {' / '.join(figure(times[of]) for of in benchmarks)} |")
    return "\n".join(lines) + "\n"


def main(folder, readme, option=None):
    made = table(pathlib.Path(folder))
    print(made)
    if option == "--write":
        page = pathlib.Path(readme)
        page.write_text(MARKS.sub(lambda marks: f"{marks[1]}\n{made}\n{marks[2]}", page.read_text()))


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
