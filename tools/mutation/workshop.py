"""A copy of the tree in which mutants are built and tested, so that nobody's sources are touched."""

import pathlib
import shutil
import subprocess

# Cases of many random cheques, which take nearly all of a program's time.
RANDOM = "*LiteralTable*"
# What tests the two floors: programs and which of their cases. The quick ones first: most mutants end there.
RUNS = [
    ("client_tests", "-*Corpus*"), ("plugin_tests", f"-{RANDOM}"), ("plugin_tests", RANDOM), ("client_schema_tests", "*"),
    ("client_exchange_tests", "*"), ("client_tests", "*Corpus*"), ("plugin_library_tests", "*"),
]
# What a program loads and is not linked to.
LOADED = {"plugin_library_tests": "bin/korvelloyaltyonline.so"}


class Unusable(Exception):
    """The unchanged tree does not build, or its tests fail: nothing would be learnt from mutants."""


class Workshop:
    """Belongs to one process. `limit` in seconds: tests that run longer count as failed."""

    def __init__(self, home, folder, limit):
        self.home = pathlib.Path(home)
        self.tree = pathlib.Path(folder) / "tree"
        self.build = pathlib.Path(folder) / "build"
        self.limit = limit

    def prepare(self):
        """Copies what git tracks, builds, and runs the tests once. Raises Unusable."""
        files = subprocess.run(
            ["git", "ls-files", "-z"], cwd=self.home, check=True, capture_output=True, text=True
        ).stdout.split("\0")
        kept = {name for name in files if name and (self.home / name).is_file()}
        self._drop_others(kept)
        for name in kept:
            self._copy(name)
        configure = ["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug"]
        # With them an index behind the end is told, which otherwise may go well.
        flags = ["-DKORVEL_BUILD_TESTS=ON", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS"]
        configured = subprocess.run([*configure, *flags], capture_output=True, text=True)
        if configured.returncode != 0:
            raise Unusable("cmake: " + configured.stderr[-2000:])
        for program, cases in RUNS:
            if not self._builds(program):
                raise Unusable(f"the unchanged tree does not build {program}")
            if not self._passes(program, cases):
                raise Unusable(f"the unchanged tree fails {program}")

    def verdict(self, mutant):
        """"killed by PROGRAM", "survived" or "not built"; the copy is as before afterwards."""
        place = self.tree / mutant.file
        source = place.read_text()
        place.write_text(mutant.applied(source))
        try:
            reached = {}
            for program, cases in RUNS:
                if program not in reached:
                    before = self._time_of(program)
                    if not self._builds(program):
                        return "not built"
                    # What the change does not reach is not linked again, and would pass as before.
                    reached[program] = self._time_of(program) != before
                if reached[program] and not self._passes(program, cases):
                    return f"killed by {program}"
            return "survived"
        finally:
            place.write_text(source)

    def _drop_others(self, kept):
        if not self.tree.is_dir():
            return
        for place in self.tree.rglob("*"):
            if place.is_file() and str(place.relative_to(self.tree)) not in kept:
                place.unlink()

    # A file that did not change keeps its time, so that a second run builds little.
    def _copy(self, name):
        origin, copy = self.home / name, self.tree / name
        if copy.is_file() and copy.read_bytes() == origin.read_bytes():
            return
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(origin, copy)

    def _builds(self, program):
        command = ["cmake", "--build", self.build, "-j2", "--target", program]
        return self._done(command).returncode == 0

    def _passes(self, program, cases):
        command = [self.build / "tests" / program, f"--gtest_filter={cases}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            return self._done(command, timeout=self.limit).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    # In a session of its own: an interrupt from the keyboard must not pass for a failure.
    @staticmethod
    def _done(command, timeout=None):
        return subprocess.run(command, capture_output=True, timeout=timeout, start_new_session=True)

    def _time_of(self, program):
        places = [self.build / "tests" / program, self.build / LOADED.get(program, f"tests/{program}")]
        return [place.stat().st_mtime_ns if place.is_file() else None for place in places]
