"""Checks of single sources, each done again only when the source, a header of ours that it includes, or
the check's own configuration has changed."""

import hashlib
import os
from concurrent.futures import ThreadPoolExecutor

from source_tree import ROOT, Includes, project_files


def check_sources(sources, configuration, stamps, check):
    """Calls check(name), which gives None or a report of faults, for each source that has not passed yet.
    Prints the reports and one line of result; returns the exit code. `configuration` is bytes, `stamps` the
    folder that remembers what has passed."""
    stamps.mkdir(parents=True, exist_ok=True)
    includes = Includes(project_files())

    def key_of(name):
        digest = hashlib.sha256(configuration)
        for file in [name, *sorted(includes.all_below(name))]:
            digest.update((ROOT / file).read_bytes())
        return digest.hexdigest()

    def look_at(name):
        key, stamp = key_of(name), stamps / name.replace("/", "-")
        if stamp.is_file() and stamp.read_text() == key:
            return name, True, None
        report = check(name)
        if report is None:
            stamp.write_text(key)
        return name, False, report

    if not sources:
        print("no sources to check: is the build tree configured?")
        return 1
    fresh = failed = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, known, report in pool.map(look_at, sorted(set(sources))):
            fresh += not known
            if report is not None:
                failed += 1
                print(f"== {name}\n{report}", flush=True)
    print(f"{len(set(sources))} sources, {fresh} looked at, {failed} with faults")
    return 1 if failed else 0
