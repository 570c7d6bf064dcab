"""What became of each mutant, on disk, and what is told about it."""

import collections
import pathlib


def read(path):
    """{identity: verdict}; the last line on a mutant counts, one that was cut off when the power went does not."""
    results = {}
    if pathlib.Path(path).is_file():
        for line in pathlib.Path(path).read_text().splitlines(keepends=True):
            identity, _, verdict = line.partition(" ")
            if line.endswith("\n"):
                results[identity] = verdict.strip()
    return results


def append(path, mutant, verdict):
    """Keeps one result at once, so that a run that is stopped loses nothing."""
    place = pathlib.Path(path)
    before = place.read_text() if place.is_file() else ""
    with place.open("a") as file:
        file.write(("" if before.endswith("\n") or not before else "\n") + f"{mutant.identity} {verdict}\n")


def reasons(path):
    """Why survivors are no fault of the tests: {identity: reason}. Each line: identity, blank, reason."""
    result = {}
    if pathlib.Path(path).is_file():
        for line in pathlib.Path(path).read_text().splitlines():
            if line and not line.startswith("#"):
                identity, _, reason = line.partition(" ")
                result[identity] = reason.strip()
    return result


def report(mutants, results, known):
    """Markdown: how many were killed by kind, and each survivor with its reason or without."""
    tried = [(mutant, results[mutant.identity]) for mutant in mutants if mutant.identity in results]
    built = [(mutant, verdict) for mutant, verdict in tried if verdict != "not built"]
    survivors = [mutant for mutant, verdict in built if verdict == "survived"]
    rows = collections.defaultdict(lambda: [0, 0])
    for mutant, verdict in built:
        rows[mutant.kind][0] += 1
        rows[mutant.kind][1] += verdict != "survived"
    lines = ["| Kind | Built | Killed |", "|---|---:|---:|"]
    lines += [f"| {kind} | {count} | {killed} |" for kind, (count, killed) in sorted(rows.items())]
    killed = len(built) - len(survivors)
    lines += [f"| all | {len(built)} | {killed} ({percent(killed, len(built))}) |", ""]
    for mutant in survivors:
        change = f"`{mutant.before}` → `{mutant.after}`".replace("\n", " ⏎ ")
        reason = known.get(mutant.identity, "NO REASON GIVEN")
        lines.append(f"- {mutant.identity} {mutant.file}:{mutant.line} {change}: {reason}")
    return "\n".join(lines)


def percent(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "none"


def lacks(mutants, results, known):
    """Survivors that nobody has given a reason for."""
    return [
        mutant
        for mutant in mutants
        if results.get(mutant.identity) == "survived" and mutant.identity not in known
    ]
