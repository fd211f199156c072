#!/usr/bin/env python3
"""check.py DOCS: reads the golden job files and requests with Python's own JSON reader.

Checks the bytes (CR LF in the job file, no byte-order mark), the order of the members, the published
schemas in DOCS, and for each file what its submission is about. Ends with 1 when anything is wrong."""

import json
import struct
import sys
from pathlib import Path

HERE = Path(__file__).parent


def single(number):
    """The number as it comes out of single precision."""
    return struct.unpack("f", struct.pack("f", number))[0]


PLAIN_OPTIONS = {
    "ao_channel": False, "color_channel": False, "gamma_out": single(2.2), "gi_channel": "0",
    "gi_irradmap_maxRate": 0, "gi_irradmap_minRate": 0, "gi_irradmap_preset": 0, "mtl_channel": False,
    "psd_channel": "0",
}
CORONA = {"CoronaNoiseLevelLimit": 0.05, "CoronaPassLimit": 100, "CoronaTimeLimit": 5400, "useCorona": True}
ABSENT = object()


def blocks(enable, number, distributed):
    return {"enable_blocking": enable, "num_blocks": number, "distributed_render": distributed}


def options(**changed):
    return {"max_options": {**PLAIN_OPTIONS, **changed}}


def gi(minimum, maximum, scale):
    return options(gi_channel="1", gi_irradmap_preset=4, gi_irradmap_minRate=minimum,
                   gi_irradmap_maxRate=maximum, gi_image_scale=scale)


def camera(name, **changed):
    return {"name": name, "img_output_name": name, "camera_width": 1920, "camera_height": 1080,
            "frame_to_render": 12, "img_output_format": "PNG", "renderable": "1", "is_spherical": False, **changed}


def paths(*names):
    return [{"path": name} for name in names]


# What must stand in the job file of each submission, member by member.
EXPECTED = {
    "plain": {"cameras": [camera("Wide")], "reference_file": ABSENT, "errors": ABSENT, "corona_options": ABSENT,
              "name": "D:\\scenes\\shot.max", "start_frame": "12", "end_frame": "20", **blocks(0, 0, 0), **options()},
    "no_camera": {"cameras": ABSENT},
    "cameras": {"cameras": [
        camera("Dome", is_spherical=True, camera_width=2147483647, frame_to_render=-2147483647, img_output_format=""),
        camera("Wide"), camera('b: "detail" \\1', img_output_name="b detail 1"), camera("客厅"), camera("🎥")]},
    "references": {"reference_file": paths("D:\\maps\\oak.jpg", "D:/scenes/room.max", "d:\\scenes\\room.max",
                                           "D:\\scenes\\room.max2", "D:\\贴图\\木 纹.png")},
    "references_none_left": {"reference_file": ABSENT},
    "blocks_three": blocks(1, 10, 0),
    "blocks_six": blocks(1, 64, 0),
    "blocks_distributed": blocks(0, 0, 7),
    "blocks_odd": blocks(1, 4, 0),
    "gi_off": options(gi_irradmap_preset=4, gi_irradmap_minRate=-3, gi_irradmap_maxRate=-1),
    "gi_100": gi(-3, -1, "100%"),
    "gi_50": gi(-4, -2, "50%"),
    "gi_33": gi(-5, -3, "33%"),
    "gi_25": gi(-6, -4, "25%"),
    "gi_no_selection": gi(-2, 0, "100%"),
    "ao": options(ao_channel=True, ao_radius=12.5, ao_subdivs=24, gamma_out=single(1.8)),
    "corona": {"corona_options": CORONA},
    "passed_through": {
        "app_version": 21000, "errors": None, "Zebra": 1, "apple": 2, "_": 3, "start_frame": 12, "end_frame": "20",
        "numbers": [9007199254740993, 18446744073709551615, -9223372036854775808, 0, -1, 0.1, 2.5, 1e100, 1e-7,
                    123456789.125, 1.0],
        "texts": ["场景 🎥 é", 'quote " back \\ slash / tab \t line \n', "\x01\x7f", ""],
        "empty": {"list": [], "object": {}}, "truth": [True, False, None], "nothing": None,
        "deep": [[[[{"a": [1, [2, [3]]]}]]]], "reference_file": ABSENT},
    "everything": {
        "name": "D:\\场景 one\\it's \"quoted\".max", "cameras": [camera("Wide")], "corona_options": CORONA,
        **blocks(0, 0, 2),
        **options(color_channel=True, ao_channel=True, ao_radius=1000.0, ao_subdivs=16, gamma_out=1.0,
                  mtl_channel=True, psd_channel="1", gi_channel="1", gi_irradmap_preset=4, gi_irradmap_minRate=-4,
                  gi_irradmap_maxRate=-2, gi_image_scale="50%")},
}


def strict_object(pairs):
    keys = [key for key, _ in pairs]
    if len(set(keys)) != len(keys):
        raise ValueError(f"a member stands twice in {keys}")
    if keys != sorted(keys, key=lambda key: key.encode()):
        raise ValueError(f"{keys} are not in the order of their bytes")
    return dict(pairs)


def parse(raw):
    return json.loads(raw.decode("utf-8", "strict"), object_pairs_hook=strict_object)


TYPES = {"object": dict, "array": list, "string": str, "boolean": bool, "null": type(None)}


def has_type(value, name):
    if name == "integer":
        return isinstance(value, int) and not isinstance(value, bool)
    if name == "number":
        return isinstance(value, (int, float)) and not isinstance(value, bool)
    return isinstance(value, TYPES[name])


def same(left, right):
    """Equal, and of one kind: by == alone, True is 1 and 1 is 1.0."""
    if isinstance(left, dict) and isinstance(right, dict):
        return left.keys() == right.keys() and all(same(left[key], right[key]) for key in left)
    if isinstance(left, list) and isinstance(right, list):
        return len(left) == len(right) and all(map(same, left, right))
    return type(left) is type(right) and left == right


KNOWN = {"$schema", "title", "description", "type", "required", "properties", "additionalProperties", "items",
         "minItems", "enum", "const"}


def schema_faults(value, schema, where):
    """The part of JSON Schema that our schemas use; a word that is not known here is a fault too."""
    for word in schema.keys() - KNOWN:
        yield f"{where}: the schema's word {word} is not checked"
    if "type" in schema and not has_type(value, schema["type"]):
        yield f"{where}: {value!r} is no {schema['type']}"
        return
    if "const" in schema and not same(value, schema["const"]):
        yield f"{where}: {value!r} is not {schema['const']!r}"
    if "enum" in schema and not any(same(value, one) for one in schema["enum"]):
        yield f"{where}: {value!r} is none of {schema['enum']}"
    if isinstance(value, dict):
        known = schema.get("properties", {})
        for key in schema.get("required", []):
            if key not in value:
                yield f"{where}: {key} is missing"
        for key, member in value.items():
            if key in known:
                yield from schema_faults(member, known[key], f"{where}.{key}")
            elif schema.get("additionalProperties") is False:
                yield f"{where}: {key} is too much"
    if isinstance(value, list):
        if len(value) < schema.get("minItems", 0):
            yield f"{where}: too few items"
        for number, item in enumerate(value):
            yield from schema_faults(item, schema.get("items", {}), f"{where}[{number}]")


def job_faults(name, schema):
    raw = (HERE / f"{name}.json").read_bytes()
    job = parse(raw)
    if raw.startswith(b"\xef\xbb\xbf"):
        yield "begins with a byte-order mark"
    if raw.count(b"\n") != raw.count(b"\r\n") or raw.count(b"\r") != raw.count(b"\r\n"):
        yield "has a line that does not end in CR LF"
    if not raw.endswith(b"}\r\n"):
        yield "does not end with its last line"
    yield from schema_faults(job, schema, name)
    for key, value in EXPECTED[name].items():
        found = job.get(key, ABSENT)
        if found is not value and not same(found, value):
            yield f"{key} is {'absent' if found is ABSENT else repr(found)}"


def request_faults(name, schema):
    raw = (HERE / f"{name}.request.json").read_bytes()
    request = parse(raw)
    job = parse((HERE / f"{name}.json").read_bytes())
    if b"\r" in raw:
        yield "has a carriage return"
    yield from schema_faults(request, schema, name)
    if request["scenePath"] != job["name"]:
        yield "tells of another scene than the job file"
    if request["maxVersion"] != f"3ds Max {job['app_version']}":
        yield f"has the version {request['maxVersion']}"
    if request["PLUGIN_SAVE_SCENE_FILE"] != (0 if name == "no_camera" else 1):
        yield "has the wrong state of the save box"


def main():
    docs = Path(sys.argv[1])
    job_schema = json.loads((docs / "job-description.schema.json").read_text("utf-8"))
    request_schema = json.loads((docs / "request.schema.json").read_text("utf-8"))
    files = {path.name for path in HERE.glob("*.json")}
    expected = {f"{name}{suffix}" for name in EXPECTED for suffix in (".json", ".request.json")}
    faults = [f"{name}: not expected here, or missing" for name in sorted(files ^ expected)]
    for name in EXPECTED:
        faults += [f"{name}.json: {fault}" for fault in job_faults(name, job_schema)]
        faults += [f"{name}.request.json: {fault}" for fault in request_faults(name, request_schema)]
    print("\n".join(faults))
    print(f"{len(EXPECTED)} job files and {len(EXPECTED)} requests, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
