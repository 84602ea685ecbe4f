"""Prints each benchmark beside each peer measured in the same run, and the
ratio of their times (below 1: Tesel is faster).

A peer is a benchmark whose name starts with Pixman, Memcpy, MyPaint, Png or OpenCv, or
ends with /memcpy. Ours is compared with the peers of its own file that
measure the same case: a name ending in /memcpy is the baseline of the names
it prefixes; the others share the last argument (tiling, size, zoom).
"""
import json
import sys

PEER_PREFIXES = ("Pixman", "Memcpy", "MyPaint", "Png", "OpenCv")


def is_peer(name):
    return name.startswith(PEER_PREFIXES) or name.endswith("/memcpy")


def same_case(ours, peer):
    if peer.endswith("/memcpy"):
        return ours.startswith(peer[: -len("memcpy")])
    return "/" in peer and ours.split("/")[-1] == peer.split("/")[-1] and "/" in ours


def micros(run):
    return run["real_time"] * {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}[run["time_unit"]]


def main(paths):
    print(f"{'measure':40} {'case':18} {'Tesel us':>11}  {'peer':42} {'peer us':>11} {'ratio':>7}")
    for path in paths:
        with open(path) as f:
            runs = [b for b in json.load(f)["benchmarks"] if b.get("run_type") != "aggregate"]
        peers = [b for b in runs if is_peer(b["name"])]
        for b in runs:
            if is_peer(b["name"]):
                continue
            for p in peers:
                if same_case(b["name"], p["name"]):
                    print(f"{b['name']:40} {b.get('label', ''):18} {micros(b):11.2f}  "
                          f"{(p.get('label') or p['name'])[:42]:42} {micros(p):11.2f} "
                          f"{micros(b) / micros(p):7.2f}")


if __name__ == "__main__":
    main(sys.argv[1:])
