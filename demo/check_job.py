"""What the demo checks of a job with other programs than the product's own."""

import hashlib
import json
import re
import subprocess
from pathlib import Path

import sample_scene
from stage import StageFailed


def archive_password(base_name):
    """The password of an archive, by the rule that docs/archive.md tells the client's makers: digits of
    three fixed numbers pick characters of the MD5 digests of the name and of the name with an ending."""
    first = hashlib.md5(base_name.encode()).hexdigest()
    second = hashlib.md5((base_name + ".7z.orv").encode()).hexdigest()

    def pick(digests, digits):
        return "".join(digests[place % len(digests)][3 * place + int(digit)]
                       for place, digit in enumerate(digits))

    return pick([first], "20719364") + pick([second], "58140732") + pick([first, second], "93605182")


def need(condition, why):
    if not condition:
        raise StageFailed(why)


def check_archive(archive, scene):
    """Debian's own 7-Zip lists the archive, tests it and unpacks it to the very bytes of the scene."""
    base_name = re.sub(r"_[A-Za-z0-9]{6}\.7z$", "", archive.name)
    need(base_name != archive.name, f"'{archive.name}' is no archive name with six random characters")
    password = "-p" + archive_password(base_name)

    def seven_zip(*arguments):
        run = subprocess.run(["7zz", *arguments], capture_output=True, timeout=60, check=False)
        need(run.returncode == 0, f"7zz {arguments[0]} ended with {run.returncode}: "
                                  f"{(run.stderr or run.stdout).decode(errors='replace').strip()[-200:]}")
        return run.stdout

    listing = seven_zip("l", "-slt", password, str(archive)).decode("utf-8")
    files = re.findall(r"^Path = (.*)$", listing, re.MULTILINE)[1:]
    need(files == [scene.name], f"the archive holds {files}, not '{scene.name}' alone")
    need("Encrypted = +" in listing, "the archive is not encrypted")
    seven_zip("t", password, str(archive))
    unpacked = seven_zip("e", "-so", password, str(archive))
    need(unpacked == scene.read_bytes(), "the archive does not hold the scene's bytes")

    wrong = subprocess.run(["7zz", "t", "-pwrong", str(archive)], capture_output=True, timeout=60, check=False)
    need(wrong.returncode != 0, "the archive opens with any password")
    print(f"   archive: {archive.name}, {archive.stat().st_size:,} bytes "
          f"of a scene of {scene.stat().st_size:,}; listed, tested and unpacked by 7zz")


def check_job_file(job_file, scene_path, cameras):
    """The job file is JSON in the form that the client reads, with the cameras that were ticked."""
    text = job_file.read_bytes()
    need(b"\r\n" in text and not text.startswith(b"\xef\xbb\xbf"),
         "the job file is not UTF-8 with CR LF and without a byte-order mark")
    job = json.loads(text.decode("utf-8"))
    need(job.get("name") == scene_path, f"the job names '{job.get('name')}', not '{scene_path}'")
    named = [camera["name"] for camera in job.get("cameras", [])]
    need(sorted(named) == sorted(cameras), f"the job has the cameras {named}, not {cameras}")
    need(all(camera["renderable"] == "1" for camera in job["cameras"]), "a camera is not renderable")
    need("errors" not in job, "the job still has the analysis' errors")
    print(f"   job file: {job_file.name}")
    for camera in job["cameras"]:
        print(f"     camera {camera['name']}: {camera['camera_width']} x {camera['camera_height']}, "
              f"frame {camera['frame_to_render']}, {camera['img_output_format']}")
    for member in ("name", "renderer_full_name", "is_region", "missing_file", "enable_blocking", "num_blocks",
                   "distributed_render", "max_options"):
        print(f"     {member}: {json.dumps(job.get(member), ensure_ascii=False)}")
    return job


def check_request(request, body, scene_path):
    """The request as the client took it off the wire."""
    head = request.split(b"\r\n\r\n", 1)[0].decode("utf-8").split("\r\n")
    need(head[0] == "POST / HTTP/1.1", f"the request begins with '{head[0]}'")
    need(body.get("scenePath") == scene_path, f"the request names '{body.get('scenePath')}'")
    need(body.get("maxVersion") == "3ds Max 2019", f"the request's version is '{body.get('maxVersion')}'")
    print("   request, as the client took it off the wire:")
    for line in request.decode("utf-8").splitlines():
        print(f"     {line}")


def linux_path(path, prefix):
    """Where a Windows path of the demo lies on this machine."""
    path = path.replace("\\", "/")
    drive, rest = path[:2].upper(), path[2:].lstrip("/")
    if drive == "Z:":
        return Path("/") / rest
    return Path(prefix) / "drive_c" / rest


def check_cleaning(product, startup_script):
    """The cleaners' log names all marks of the sample scene and nothing else; of the start-up script the
    studio's own part is left, and the backup has the whole."""
    entries = [json.loads(line) for line in (product / "log/OrvAntivirus.log").read_text("utf-8").splitlines()]
    removed = {(e["kind"], re.split(r"[\\/]", e["name"])[-1]) for e in entries if e["action"] == "removed"}
    need(removed == sample_scene.REMOVED, f"the cleaning scripts removed {removed}")
    results = [e["action"] for e in entries if e["kind"] == "result"]
    need(results == ["clean", "cleaned", "cleaned"], f"the cleaning scripts say {results}")
    need(startup_script.read_bytes() == sample_scene.HONEST_PART, "the start-up script was not cut as it should be")
    backup = product / f"backup/{startup_script.name}.1.backup"
    need(backup.read_bytes().startswith(sample_scene.HONEST_PART) and b"marker" in backup.read_bytes(),
         "the backup does not have the whole start-up script")
    print(f"   cleaning: {len(removed)} marks removed, neighbours left, {startup_script.name} cut and backed up")
