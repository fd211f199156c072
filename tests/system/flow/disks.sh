#!/usr/bin/env bash
# disks.sh up|down FOLDER: small file systems for the tests of a full and of a write-protected disk.
#   FOLDER/full                       a disk of 256 KiB
#   FOLDER/protected/room_plugin_output  a disk that cannot be written to, where a job's folder belongs
# Mounting needs root, directly or through sudo without a password. A machine that does not allow it
# fails here, and with it the tests that need the disks.
set -euo pipefail
verb=$1
folder=$2
full=$folder/full
protected=$folder/protected/room_plugin_output

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo -n "$@"; fi
}

down() {
  local disk
  for disk in "$full" "$protected"; do
    if mountpoint -q "$disk"; then as_root umount -l "$disk"; fi
  done
  rm -rf "$folder"
}

up() {
  down # what a run that was broken off has left
  mkdir -p "$full" "$protected"
  as_root mount -t tmpfs -o size=256k,mode=0777 tmpfs "$full"
  as_root mount -t tmpfs -o size=16k,mode=0555,ro tmpfs "$protected"
}

case "$verb" in
  up) up || {
    echo "the small disks cannot be mounted: run the tests as root, or where sudo asks for no password" >&2
    exit 1
  } ;;
  down) down ;;
  *)
    echo "usage: disks.sh up|down FOLDER" >&2
    exit 2
    ;;
esac
