"""List files for the end-to-end tests, written as they are read: groups with their processors."""

import hashlib
import json
import uuid

_NAMES = uuid.UUID("5f0c6d1e-33a7-4f0e-9f6e-7a1d2c9b8e10")


def node_id(name):
    """The id of the node of that name, the same in every run."""
    return str(uuid.uuid5(_NAMES, name))


def short_id(name):
    """The id as the journal shows it."""
    return node_id(name)[:8]


def processor(name, address, online=True, failover=0, project="Aurora", chief=0):
    return {
        "aux": node_id("aux " + name), "chief": chief, "expanded": False, "failover": failover, "id": node_id(name),
        "ip": address, "model": 12, "name": name, "online": online, "portA": 9999, "portB": 9099, "project": project,
        "type": "Corvid C12",
    }


def group(name, processors, expanded=True):
    return {"aux": [], "chief": "", "expanded": expanded, "id": node_id(name), "name": name, "processors": processors}


def write(path, groups, processors):
    tree = {"expanded": True, "groups": groups, "name": "All processors", "processors": processors}
    body = (json.dumps(tree, indent=4, sort_keys=True, ensure_ascii=False) + "\n").encode()
    with open(path, "wb") as file:
        file.write(b"kvtl 1 sha256:" + hashlib.sha256(body).hexdigest().encode() + b"\n" + body)


def read(path):
    """The tree of a list file: the body's JSON."""
    with open(path, encoding="utf-8") as file:
        return json.loads(file.read().split("\n", 1)[1])


def outline(path):
    """The names in a list file as lines, members indented by two blanks."""
    tree = read(path)
    lines = []
    for entry in tree["groups"]:
        lines.append(entry["name"])
        lines += ["  " + member["name"] for member in entry["processors"]]
    return lines + [entry["name"] for entry in tree["processors"]]
