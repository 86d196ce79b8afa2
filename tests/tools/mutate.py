#!/usr/bin/env python3
"""Breaks the core one line at a time, and tells which breaks the tests notice.

    tests/tools/mutate.py --count 100 --seed 1

works in copies of the tracked files below build/mutation/, one for each job. A break that doesn't
compile is drawn anew. What survives is printed with its line; it shows a rule without a test, or
code that makes no difference.
"""
import argparse
import os
import queue
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FIRST = "vskcore_tests"
# What else looks at the core, each with its arguments. Built and run for what got past the first.
OTHERS = {
    "vskcore_allocation_tests": [],
    "vskcore_upload_tests": [],
    "vskcore_thread_tests": [],
    "vskcore_outer_tests": [],
    **{f"fuzz_{name}": [f"fuzz/corpus/{name}"]
       for name in ("cinterface", "datetime", "document", "gzip", "reader")},
}
CPU_SECONDS = 60
WALL_SECONDS = 900
MEMORY = 8 << 30

SWAPS = {
    " == ": " != ", " != ": " == ", " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ",
    " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + ",
}
CONDITION = re.compile(r"\b(if|while) \((.*)\)( \{| [^)]*;)?$")
STATEMENT = re.compile(r"^\s+(?!return\b|throw\b|using\b|else\b|case\b|delete\b|friend\b)"
                       r"[\w:.>\[\]*-]+(\(.*\)| [-+|&^]?= .*);$")


def blank(line):
    """The line with texts and comments blanked, so that only code is changed."""
    line = re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])*\'', lambda found: "~" * len(found[0]), line)
    return re.sub(r"//.*", lambda found: " " * len(found[0]), line).rstrip()


def breaks(line):
    """All that may become of one line."""
    code = blank(line)
    if code.lstrip().startswith(("#", "static_assert", "template", "*", "/*")):
        return
    condition = CONDITION.search(code)
    if condition:
        begin, end = condition.span(2)
        yield f"{line[:begin]}!({line[begin:end]}){line[end:]}"
    if STATEMENT.match(code):
        yield re.match(r"\s*", line)[0] + ";"
    for old, new in SWAPS.items():
        for found in re.finditer(re.escape(old), code):
            yield line[:found.start()] + new + line[found.end():]
    for found in re.finditer(r"(?<![\w.])(\d+)(?=[uU]?\b(?![\w.]))", code):
        yield line[:found.start()] + str(int(found[0], 10) + 1) + line[found.end():]
    for found in re.finditer(r"\b(true|false)\b", code):
        yield line[:found.start()] + {"true": "false", "false": "true"}[found[0]] + line[found.end():]


def tracked(folder="."):
    names = subprocess.check_output(["git", "ls-files", "-z", folder], cwd=ROOT, text=True)
    return names.split("\0")[:-1]


def draw(random_source, tree, folder):
    """Every line that can be broken, in random order, each with one of its breaks."""
    drawn = []
    for name in tracked(folder):
        if not name.endswith((".cpp", ".h")):
            continue
        for number, line in enumerate((tree.path / name).read_text().splitlines()):
            choices = list(breaks(line))
            if choices:
                drawn.append((name, number, random_source.choice(choices)))
    random_source.shuffle(drawn)
    return drawn


def suites(folder):
    """A filter for the tests that mirror a folder of src; all where there are none."""
    found = set()
    for source in (ROOT / "tests" / folder).glob("**/*.cpp"):
        found |= set(re.findall(r"^TEST(?:_[FP])?\((\w+),", source.read_text(), re.M))
    return ":".join(f"{suite}.*:*/{suite}.*" for suite in sorted(found)) or "*"


def limited():
    resource.setrlimit(resource.RLIMIT_CPU, (CPU_SECONDS, CPU_SECONDS + 1))
    # The upper limit stays: tests set limits of their own.
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, resource.getrlimit(resource.RLIMIT_AS)[1]))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Tree:
    """A copy of the project that may be broken."""

    def __init__(self, number, build_jobs):
        self.build_jobs = build_jobs
        self.endless = False
        self.path = ROOT / "build" / "mutation" / str(number)
        self.build_path = self.path / "build" / "mutants"
        self.temp = self.path / "build" / "tmp"
        self.copy()

    def prepare(self):
        for command in (["cmake", "-G", "Ninja", "-S", ".", "-B", self.build_path,
                         "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                         # A break that the list of tests doesn't outlive is one that compiles.
                         "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"],
                        self.build_command(FIRST, *OTHERS)):
            subprocess.run(command, cwd=self.path, check=True, stdout=subprocess.DEVNULL)
        noticed = self.notices("src/core/base/Fail.cpp")
        if noticed:
            sys.exit(f"{noticed} fails without any break.")

    def copy(self):
        for name in tracked():
            source, target = ROOT / name, self.path / name
            if os.path.lexists(target) and (
                    target.is_symlink() or target.read_bytes() == source.read_bytes()):
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target, follow_symlinks=False)

    def build_command(self, *targets):
        return ["cmake", "--build", self.build_path, f"-j{self.build_jobs}", "--target", *targets]

    def build(self, *targets):
        done = subprocess.run(self.build_command(*targets), cwd=self.path,
                              capture_output=True, check=False)
        return done.returncode == 0

    def fails(self, program, *arguments):
        shutil.rmtree(self.temp, ignore_errors=True)
        self.temp.mkdir(parents=True)
        try:
            done = subprocess.run(
                [self.build_path / "bin" / program, *arguments], cwd=self.path,
                env={**os.environ, "TMPDIR": str(self.temp)}, stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=limited,
                start_new_session=True, timeout=WALL_SECONDS, check=False)
        except subprocess.TimeoutExpired:
            self.endless = True
            return True
        self.endless = done.returncode == -signal.SIGXCPU
        return done.returncode != 0

    def notices(self, name):
        """Which tests notice that the file is broken; nothing when none does."""
        folder = name.split("/")[1]
        own = suites(folder)
        if self.fails(FIRST, "--gtest_fail_fast", f"--gtest_filter={own}"):
            return f"tests/{folder}"
        if self.fails(FIRST, "--gtest_fail_fast", f"--gtest_filter=-{own}"):
            return FIRST
        if not self.build(*OTHERS):
            return "the build of another program"
        return next((other for other, arguments in OTHERS.items()
                     if self.fails(other, *arguments)), None)

    def try_out(self, name, number, broken):
        """None for what doesn't compile, else whether, and by what, it was noticed."""
        target = self.path / name
        whole = target.read_text()
        lines = whole.splitlines(keepends=True)
        lines[number] = broken + "\n"
        try:
            target.write_text("".join(lines))
            if not self.build(FIRST):
                return None
            noticed = self.notices(name) or "SURVIVED"
            return f"{noticed}, by not ending" if self.endless else noticed
        finally:
            target.write_text(whole)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--count", type=int, default=100, help="how many breaks that compile")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--folder", default="src", help="what to break, such as src/model")
    arguments = parser.parse_args()

    build_jobs = max(1, os.cpu_count() // arguments.jobs)
    trees = [Tree(number, build_jobs) for number in range(arguments.jobs)]
    drawn = queue.SimpleQueue()
    for mutant in draw(random.Random(arguments.seed), trees[0], arguments.folder):
        drawn.put(mutant)
    for tree in trees:
        tree.prepare()
    outcomes = []
    lock = threading.Lock()

    def work(tree):
        while True:
            with lock:
                if len(outcomes) >= arguments.count or drawn.empty():
                    return
                name, number, broken = drawn.get()
            outcome = tree.try_out(name, number, broken)
            with lock:
                if outcome is None or len(outcomes) >= arguments.count:
                    continue
                outcomes.append(outcome)
                line = (tree.path / name).read_text().splitlines()[number].strip()
                print(f"{len(outcomes)}. {name}:{number + 1} {outcome}\n"
                      f"  - {line}\n  + {broken.strip()}", flush=True)

    workers = [threading.Thread(target=work, args=(tree,)) for tree in trees]
    for worker in workers:
        worker.start()
    for worker in workers:
        worker.join()
    survived = outcomes.count("SURVIVED")
    print(f"{len(outcomes) - survived} of {len(outcomes)} noticed, {survived} survived")


if __name__ == "__main__":
    main()
