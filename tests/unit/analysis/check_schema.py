#!/usr/bin/env python3
"""check_schema.py [--all-read] SCHEMA REPORTS: holds the schema of the analysis report against the reader.

REPORTS has one JSON object a line: `report`, and whether the reader has `refused` it. Ends with 1 when
the schema allows a report that was refused, or forbids one that was read. With --all-read no report may
have been refused."""

import json
import sys

from jsonschema import Draft202012Validator


def main():
    all_read = sys.argv[1] == "--all-read"
    schema_path, reports_path = sys.argv[2 if all_read else 1:]
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    Draft202012Validator.check_schema(schema)
    validator = Draft202012Validator(schema)

    counts = {True: 0, False: 0}
    faults = 0
    with open(reports_path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            entry = json.loads(line)
            counts[entry["refused"]] += 1
            error = next(validator.iter_errors(entry["report"]), None)
            if (error is not None) == entry["refused"]:
                continue
            faults += 1
            reason = "the schema allows it" if error is None else f"{error.json_path}: {error.message}"
            print(f"report {number} was {'refused' if entry['refused'] else 'read'}, but {reason[:300]}")
    print(f"{counts[False]} reports that were read, {counts[True]} that were refused, {faults} faults")
    # Without reports of the kinds that are expected nothing was checked.
    complete = counts[False] and (not counts[True] if all_read else counts[True])
    return 0 if complete and not faults else 1


if __name__ == "__main__":
    sys.exit(main())
