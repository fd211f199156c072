"""The demo's sample scene: what a studio's folder could hold, made from a fixed seed.

The scene file's bytes are not a real scene's, but they compress like one: meshes, repeated structure and
thumbnails that were compressed already. What the host reads of the scene stands in the description
beside it."""

import array
import json
import math
import random

SCENE_BYTES = 40 * 1000 * 1000
PAGE = 4096
# Shares of a scene file: geometry, structure that repeats itself, images and other packed data.
GEOMETRY, STRUCTURE, PACKED = 45, 40, 15

SCENE_NAME = "客厅 夜景 v12"
SCENE_FOLDER = ("工作室 项目", "海边别墅 A 方案")
MISSING = ("橡木地板 反射.jpg", "窗帘 凹凸.png")


def description(scene_folder):
    """The scene's description; `scene_folder` is its Windows path."""
    def beside(name):
        return f"{scene_folder}\\{name}"

    return {
        "objects": ["墙体", "沙发 01", "茶几", "落地灯", "窗帘", "VRaySun001"],
        "cameras": [
            {"name": "Cam_Living_01", "width": 3840, "height": 2160},
            {"name": "餐厅视角", "width": 2400, "height": 3200},
            {"name": "Cam_Detail", "width": 1920, "height": 1080},
        ],
        "renderer": {
            "name": "V_Ray_Adv_3_60_03",
            "properties": {
                "imageSampler_type": 1,
                "gi_irradmap_preset": 2,
                "gi_irradmap_minRate": -3,
                "gi_irradmap_maxRate": 0,
                "camera_overrideFOV": False,
                "camera_fov": 45.0,
                "camera_type": 0,
            },
        },
        "output": {"width": 3000, "height": 2000, "format": "png", "gamma": 2.2, "region": False},
        "frames": {"start": 0, "end": 0},
        "external_files": [
            {"path": beside("maps\\石材 爵士白.jpg"), "missing": False},
            {"path": beside("maps\\沙发 布纹.jpg"), "missing": False},
            *({"path": beside(f"maps\\{name}"), "missing": True} for name in MISSING),
        ],
        "modified": True,
        **marks(),
    }


def marks():
    """The marks of a script virus, with nothing behind them, and neighbours that look like them."""
    harmless = "-- harmless marker, no virus: cleanbeta " + "x" * 5000
    return {
        "nodes": [
            {"name": "¡¡×ý×û", "class": "Point", "superclass": "Helper", "hidden": True,
             "controllers": {"scale": harmless}},
            {"name": "灯光 辅助", "class": "Point", "superclass": "Helper", "controllers": {"scale": "[1,1,1]"}},
        ],
        "globals": {"CRP_AScript": "harmless marker", "runMainCleanBeta": {"function": True}, "studioTools": "on"},
        "persistents": ["CRP_AScript", "studioTools"],
        "callbacks": [
            {"type": "filePostOpen", "id": "ID_CRP_filePostOpen", "script": "-- harmless marker", "persistent": True},
            {"type": "filePostOpen", "id": "studio", "script": "print 1"},
        ],
    }


# What the cleaning scripts have to remove of it, and nothing else.
REMOVED = {
    ("callback", "ID_CRP_filePostOpen"), ("persistent", "CRP_AScript"), ("global", "CRP_AScript"),
    ("function", "runMainCleanBeta"), ("node", "¡¡×ý×û"), ("file", "studio.ms"),
}
STARTUP_SCRIPT = "studio.ms"
HONEST_PART = b"print \"the studio's own start-up script\"\r\n"


def write_startup_script(folder):
    """A start-up script of the studio's with the mark behind it. Returns its file."""
    folder.mkdir(parents=True)
    script = folder / STARTUP_SCRIPT
    script.write_bytes(HONEST_PART + b"CRP_AScript = \"harmless marker\"\r\n")
    return script


def _geometry_pages(chance):
    """Smooth surfaces as 32-bit coordinates with a little noise, as meshes are stored."""
    pages = []
    for _ in range(64):
        scale, phase = chance.uniform(5, 400), chance.uniform(0, math.tau)
        pages.append(array.array("f", (
            scale * math.sin(phase + point / 90) + chance.gauss(0, 0.01)
            for point in range(PAGE // 4))).tobytes())
    return pages


def _structure_pages(chance):
    """Node records: numbers and zeros around names."""
    names = ["Box", "墙体", "Line", "VRayMtl", "Bitmap", "Editable_Poly"]
    pages = []
    for _ in range(64):
        records = bytearray()
        while len(records) < PAGE:
            name = f"{chance.choice(names)}{chance.randrange(1000):03}".encode("utf-16-le")
            records += chance.randrange(1 << 16).to_bytes(4, "little") + bytes(12) + name + bytes(8)
        pages.append(bytes(records[:PAGE]))
    return pages


def write_scene(path, size=SCENE_BYTES, seed=20190101):
    """Writes the scene's bytes: the same for the same seed."""
    chance = random.Random(seed)
    geometry, structure = _geometry_pages(chance), _structure_pages(chance)
    alphabet = bytes(range(256))
    with open(path, "wb") as scene:
        scene.write("ORV SAMPLE SCENE".encode().ljust(PAGE, b"\0"))
        while scene.tell() < size:
            kind = chance.choices(("geometry", "structure", "packed"), (GEOMETRY, STRUCTURE, PACKED))[0]
            if kind == "geometry":
                # The low bytes of another mesh's numbers: alike in kind, different in value.
                turn = chance.randrange(256)
                page = chance.choice(geometry).translate(alphabet[turn:] + alphabet[:turn])
            elif kind == "structure":
                page = chance.choice(structure)
            else:
                page = chance.randbytes(PAGE)
            scene.write(page[:max(0, size - scene.tell())])


def write_sample(folder, windows_folder):
    """Writes scene and description into `folder`, which `windows_folder` names for the host. Returns
    the scene file."""
    folder.mkdir(parents=True, exist_ok=True)
    scene = folder / f"{SCENE_NAME}.max"
    write_scene(scene)
    beside = folder / f"{scene.name}.json"
    beside.write_text(json.dumps(description(windows_folder), ensure_ascii=False, indent=2), "utf-8")
    return scene
