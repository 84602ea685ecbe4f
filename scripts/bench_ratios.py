"""Prints benchmark results as ratios to the peers measured in the same run.

A peer is a benchmark whose name starts with Pixman, Memcpy or MyPaint, or
ends with /memcpy. Ours is compared with the peers of its own file that
measure the same case: a name ending in /memcpy is the baseline of the names
it prefixes; the others share the last argument (tiling, size, zoom).
"""
import json
import sys

PEER_PREFIXES = ("Pixman", "Memcpy", "MyPaint")


def is_peer(name):
    return name.startswith(PEER_PREFIXES) or name.endswith("/memcpy")


def same_case(ours, peer):
    if peer.endswith("/memcpy"):
        return ours.startswith(peer[: -len("memcpy")])
    return "/" in peer and ours.split("/")[-1] == peer.split("/")[-1] and "/" in ours


def micros(run):
    return run["real_time"] * {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}[run["time_unit"]]


def main(paths):
    print(f"{'benchmark':48} {'label':32} {'us':>12}  ratio to each peer (time ours / time peer)")
    for path in paths:
        with open(path) as f:
            runs = [b for b in json.load(f)["benchmarks"] if b.get("run_type") != "aggregate"]
        peers = [b for b in runs if is_peer(b["name"])]
        for b in runs:
            if is_peer(b["name"]):
                continue
            ratios = [f"{micros(b) / micros(p):.2f}x {p.get('label') or p['name']}"
                      for p in peers if same_case(b["name"], p["name"])]
            print(f"{b['name']:48} {b.get('label', ''):32} {micros(b):12.2f}  {'; '.join(ratios)}")


if __name__ == "__main__":
    main(sys.argv[1:])
