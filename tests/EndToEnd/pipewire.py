"""What PipeWire carries, of all programs of the desktop."""

import json

from application import run


def objects():
    """What there is, as pw-dump describes it. What changes while it lists that, a further list of its tells."""
    told, known, decoder = run("pw-dump").stdout.strip(), {}, json.JSONDecoder()
    while told:
        changes, end = decoder.raw_decode(told)
        known.update({each["id"]: each for each in changes})
        told = told[end:].lstrip()
    return [each for each in known.values() if each.get("info")]  # that of one which has gone is null


def nodes():
    return [each for each in objects() if each["type"] == "PipeWire:Interface:Node"]


def casts():
    """How many casts of the screen there are."""
    sources = ("Video/Source", "Stream/Output/Video")  # of xdg-desktop-portal-wlr, and mutter's
    return sum(node["info"].get("props", {}).get("media.class") in sources for node in nodes())
