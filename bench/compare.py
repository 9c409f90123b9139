#!/usr/bin/python3
"""Compares what an export costs: this library beside a plain program, dxflib, ezdxf and the bare writing of the bytes.

Prints a table and whether each limit is held; exits with 1 when one is missed. Usage: compare.py BUILD_FOLDER [--quick]
[--picture FILE]
"""

import argparse
import filecmp
import os
import platform
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path
from statistics import median

SIZES = (10_000, 50_000, 100_000)
COUNTED_SIZES = (500, 2_500)  # of instructions: the difference has no start-up in it
EZDXF_LARGEST = 10_000  # 100,000 images take it about a minute, every round
ROUNDS, QUICK_ROUNDS, EZDXF_ROUNDS = 11, 3, 3

PLAIN = "plain program, std::to_chars"
PLAIN_OWN = "plain program, own formatter"
LIBRARY = "library, 3D"
TWICE = "library, 3D, written twice"
FLAT = "library, flattened"
PLANE = "library, plane only"
DXFLIB_TEXTS = "dxflib, ready-made numbers"
DXFLIB_OWN = "dxflib, own numbers"
EZDXF = "ezdxf"
RAW = "write of the bytes"


@dataclass
class Run:
    user: float  # seconds
    system: float
    peak: int  # bytes of resident memory
    steps: dict  # CPU seconds and allocations of each step that the program names
    size: int  # bytes of the file

    @property
    def cpu(self):
        return self.user + self.system


class Programs:
    """The programs in a build folder, each started anew for every run."""

    def __init__(self, build: Path):
        self.bin = build / "bin"
        self.template = Path(__file__).parent.parent / "resources" / "PrepImageAbschnitte_2010.template"
        self.output = build / "output.dxf"
        self.raw_bytes = {}  # by size: what the library writes

    def command(self, name: str, count: int, output: Path) -> list:
        count, output, template = str(count), str(output), str(self.template)
        program = lambda file: str(self.bin / file)
        return {
            PLAIN: lambda: [program("plain_export"), "to_chars", count, output, template],
            PLAIN_OWN: lambda: [program("plain_export"), "own", count, output, template],
            LIBRARY: lambda: [program("library_export"), "3d", count, output],
            TWICE: lambda: [program("library_export"), "twice", count, output],
            FLAT: lambda: [program("library_export"), "flat", count, output],
            PLANE: lambda: [program("library_export"), "plane", count, output],
            DXFLIB_TEXTS: lambda: [program("dxflib_export"), "texts", count, output],
            DXFLIB_OWN: lambda: [program("dxflib_export"), "own", count, output],
            EZDXF: lambda: [sys.executable, str(Path(__file__).parent / "programs/ezdxf_export.py"), count, output],
            RAW: lambda: [program("raw_write"), str(self.raw_bytes[int(count)]), output],
        }[name]()

    def write(self, name: str, count: int, output: Path):
        subprocess.run(self.command(name, count, output), check=True, stdout=subprocess.DEVNULL)

    def measure(self, name: str, count: int) -> Run:
        # A file that is there already would be emptied at the program's expense.
        self.output.unlink(missing_ok=True)
        done = subprocess.run(
            [str(self.bin / "measure"), *self.command(name, count, self.output)],
            check=True, stdout=subprocess.PIPE, text=True,
        )
        values = {key: float(value) for key, value in (line.split() for line in done.stdout.splitlines())}
        user, system, peak = values.pop("user"), values.pop("system"), int(values.pop("peak")) * 1024
        size = self.output.stat().st_size if self.output.exists() else 0
        return Run(user, system, peak, values, size)

    def instructions(self, name: str, count: int) -> int:
        """The same whenever it is counted, whatever else the machine does."""
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={os.devnull}",
             *self.command(name, count, self.output)],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
        )
        return int(re.search(r"Collected : (\d+)", done.stderr).group(1))


def check_same_work(programs: Programs, build: Path):
    """The drawings must be the same before their costs are compared."""
    library, other = build / "library.dxf", build / "other.dxf"
    for count in SIZES:
        programs.write(LIBRARY, count, library)
        programs.raw_bytes[count] = library.stat().st_size
        for name in (PLAIN, PLAIN_OWN):
            programs.write(name, count, other)
            if not filecmp.cmp(library, other, shallow=False):
                sys.exit(f"compare: {count} images: '{name}' writes other bytes than the library")
    # A group is two lines, its code and its value.
    codes = []
    for name in (DXFLIB_TEXTS, DXFLIB_OWN):
        programs.write(name, SIZES[0], other)
        codes.append(other.read_bytes().splitlines()[::2])
    if codes[0] != codes[1]:
        sys.exit("compare: the dxflib programs write different groups")
    library.unlink()
    other.unlink()
    print(f"Library and plain program write the same bytes for {', '.join(f'{n:,}' for n in SIZES)} images.\n")


def measure_all(programs: Programs, rounds: int) -> dict:
    """Runs by (program, size), the same round at the same index. The order of the programs turns with the round."""
    names = [PLAIN, PLAIN_OWN, LIBRARY, TWICE, FLAT, PLANE, DXFLIB_TEXTS, DXFLIB_OWN, EZDXF, RAW]
    runs = {}
    for number in range(rounds):
        for count in SIZES:
            turned = names[number % len(names):] + names[:number % len(names)]
            for name in turned:
                if name == EZDXF and (count > EZDXF_LARGEST or number >= EZDXF_ROUNDS):
                    continue
                if sys.stderr.isatty():
                    print(f"\rround {number + 1} of {rounds}: {count:,} images, {name:<30}", end="", file=sys.stderr)
                runs.setdefault((name, count), []).append(programs.measure(name, count))
    print("\r" + " " * 79 + "\r", end="", file=sys.stderr)
    return runs


class Results:
    def __init__(self, programs: Programs, runs: dict):
        self.runs = runs
        self.names = list(dict.fromkeys(name for name, _ in runs))
        self.tiny = {name: programs.measure(name, 1).peak for name in self.names if name != RAW}
        small, large = COUNTED_SIZES
        self.instructions = {
            name: (programs.instructions(name, large) - programs.instructions(name, small)) / (large - small)
            for name in (PLAIN, PLAIN_OWN, LIBRARY, FLAT)
        }

    def cpu(self, name, count):
        return median(run.cpu for run in self.runs[name, count])

    def user(self, name, count):
        return median(run.user for run in self.runs[name, count])

    def system(self, name, count):
        return median(run.system for run in self.runs[name, count])

    def allocations(self, name, count):
        """Those of the write."""
        return self.runs[name, count][0].steps["write_allocations"]

    def ratio(self, name, count, base=PLAIN):
        """The median of the ratios of runs in the same round."""
        return median(a.cpu / b.cpu for a, b in zip(self.runs[name, count], self.runs[base, count]))

    def step_share(self, name, step, count):
        """A step's part in the whole 3D export of the same round."""
        return median(
            a.steps[step] / b.cpu for a, b in zip(self.runs[name, count], self.runs[LIBRARY, count])
        )

    def growth(self, name, small, large):
        return median(
            (b.cpu / large) / (a.cpu / small) for a, b in zip(self.runs[name, small], self.runs[name, large])
        )

    def peak_per_image(self, name, count):
        """What the peak grows by from one image on, per image; nothing for the writing of the bytes."""
        if name == RAW:
            return None
        return (median(run.peak for run in self.runs[name, count]) - self.tiny[name]) / count

    def rate(self, name, count):
        """Bytes written per CPU second."""
        return median(run.size / run.cpu for run in self.runs[name, count])


def print_table(results: Results):
    print("| images | program | CPU / plain | user + system per image | peak memory per image | written per CPU second |")
    print("|-------:|:--------|------------:|------------------------:|----------------------:|-----------------------:|")
    for count in SIZES:
        for name in results.names:
            if (name, count) not in results.runs:
                continue
            peak = results.peak_per_image(name, count)
            rate = results.rate(name, count)
            print(
                f"| {count:,} | {name} | {results.ratio(name, count):.2f} | "
                f"{results.user(name, count) / count * 1e6:.2f} + {results.system(name, count) / count * 1e6:.2f} us | "
                f"{f'{peak:,.0f} bytes' if peak is not None else ''} | "
                f"{f'{rate / 1e6:,.0f} MB' if rate else ''} |"
            )
    print()
    print("| program | instructions per image | / plain |")
    print("|:--------|-----------------------:|--------:|")
    for name, count in results.instructions.items():
        print(f"| {name} | {count:,.0f} | {count / results.instructions[PLAIN]:.3f} |")
    print()


def check_limits(results: Results) -> bool:
    """Prints each limit with what was measured; whether all are held."""
    held = True

    def check(subject, value, limit, holds, unit=""):
        nonlocal held
        held = held and holds
        digits = 0 if unit else 3
        print(f"{'held  ' if holds else 'MISSED'}  {subject}: {value:,.{digits}f}{unit}, limit {limit:,}{unit}")

    for name, limit in ((LIBRARY, 0.55), (FLAT, 0.7)):
        counted = results.instructions[name] / results.instructions[PLAIN]
        check(f"instructions per image of the {name} / plain program", counted, limit, counted <= limit)
    for count in SIZES:
        at = f"at {count:,} images: "
        for name, limit in ((LIBRARY, 0.75), (FLAT, 0.9)):
            cpu = results.ratio(name, count)
            check(at + f"CPU of the {name} / plain program", cpu, limit, cpu <= limit)
        for name, limit in ((LIBRARY, 600), (FLAT, 800)):
            peak = results.peak_per_image(name, count)
            check(at + f"peak memory of the {name} per image", peak, limit, peak <= limit, " bytes")
        faster = min(results.ratio(name, count, LIBRARY) for name in (DXFLIB_TEXTS, DXFLIB_OWN))
        check(at + "CPU of the faster dxflib program / library (at least)", faster, 4.0, faster >= 4.0)
        plane = results.step_share(PLANE, "plane", count)
        check(at + "proposing the plane / 3D export", plane, 0.1, plane <= 0.1)
        destroy = results.step_share(LIBRARY, "destroy", count)
        check(at + "destroying the facade / 3D export (below)", destroy, 0.1, destroy < 0.1)

    small, large = SIZES[0], SIZES[-1]
    growth = results.growth(LIBRARY, small, large)
    check(f"CPU per image at {large:,} / {small:,} images", growth, 1.2, growth <= 1.2)
    for name in (LIBRARY, FLAT):
        more = results.allocations(name, large) - results.allocations(name, small)
        check(f"allocations of a write of the {name}, more at {large:,} images", more, 0, more == 0, " allocations")
    second = results.peak_per_image(TWICE, large) - results.peak_per_image(LIBRARY, large)
    check("peak memory that a second write adds per image (below)", second, 8, second < 8, " bytes")
    return held


def draw(results: Results, path: Path):
    import matplotlib

    matplotlib.use("Agg")
    matplotlib.rcParams.update({"svg.hashsalt": "performance", "font.size": 9, "axes.spines.top": False,
                                "axes.spines.right": False})
    from matplotlib import pyplot

    style = {
        EZDXF: ("#9467bd", "v"), DXFLIB_OWN: ("#8c564b", "s"), DXFLIB_TEXTS: ("#bc8f6f", "D"),
        FLAT: ("#6baed6", "^"), LIBRARY: ("#08519c", "o"), PLAIN: ("#d62728", "x"), PLAIN_OWN: ("#ff9896", "+"),
        RAW: ("#7f7f7f", "."),
    }
    figure, (cpu, memory, legend) = pyplot.subplots(
        1, 3, figsize=(11, 4), layout="constrained", gridspec_kw={"width_ratios": (4, 4, 2)}
    )
    for name, (colour, marker) in style.items():
        counts = [count for count in SIZES if (name, count) in results.runs]
        look = {"color": colour, "marker": marker, "linewidth": 2.2 if name == LIBRARY else 1.2}
        cpu.plot(counts, [results.cpu(name, count) / count * 1e6 for count in counts], label=name, **look)
        if name != RAW:
            memory.plot(counts, [results.peak_per_image(name, count) for count in counts], **look)
    for axes, label in ((cpu, "CPU per image in microseconds"), (memory, "peak memory per image in bytes")):
        axes.set(xscale="log", yscale="log", xlabel="images", title=label, xticks=SIZES,
                 xticklabels=[f"{count:,}" for count in SIZES])
        axes.minorticks_off()
        axes.yaxis.set_major_formatter(matplotlib.ticker.StrMethodFormatter("{x:,g}"))
        axes.grid(axis="y", color="#dddddd", linewidth=0.6)
    legend.axis("off")
    legend.legend(*cpu.get_legend_handles_labels(), loc="center", frameon=False)
    path.parent.mkdir(parents=True, exist_ok=True)
    figure.savefig(path, metadata={"Date": None} if path.suffix == ".svg" else None, dpi=130)


def describe_machine(build: Path) -> str:
    def first_line(command):
        return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout.split("\n")[0]

    def installed(package):
        return f"{package} {first_line(['dpkg-query', '-W', '-f=${Version}', package])}"

    cache = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    compiler = next(line.split("=", 1)[1] for line in cache.splitlines() if line.startswith("CMAKE_CXX_COMPILER:"))
    cpuinfo = Path("/proc/cpuinfo").read_text(encoding="utf-8")
    model = next((line.split(":", 1)[1].strip() for line in cpuinfo.splitlines() if line.startswith("model name")), "?")
    return "\n".join((
        f"Machine: {model}, {os.cpu_count()} cores, {platform.system()} {platform.release().split('-')[0]}, "
        f"load {os.getloadavg()[0]:.1f}",
        f"Versions: {first_line([compiler, '--version'])}, {installed('libstdc++6')}, {installed('libdxflib3')}, "
        f"{installed('python3-ezdxf')}, Python {platform.python_version()}",
    ))


def main() -> int:
    arguments = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    arguments.add_argument("build", type=Path, help="folder with the built programs")
    arguments.add_argument("--quick", action="store_true", help=f"{QUICK_ROUNDS} rounds instead of {ROUNDS}")
    arguments.add_argument("--picture", type=Path, help="where to draw the growth (.svg or .png)")
    options = arguments.parse_args()

    programs = Programs(options.build.resolve())
    print(describe_machine(options.build) + "\n")
    check_same_work(programs, options.build)
    results = Results(programs, measure_all(programs, QUICK_ROUNDS if options.quick else ROUNDS))
    print_table(results)
    held = check_limits(results)
    picture = options.picture or options.build / "performance.svg"
    draw(results, picture)
    print(f"Picture: {picture}")
    programs.output.unlink(missing_ok=True)
    return 0 if held else 1


if __name__ == "__main__":
    sys.exit(main())
