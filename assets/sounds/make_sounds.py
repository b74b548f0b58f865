#!/usr/bin/env python3
"""Makes the program's sounds beside this file: two short ones for the buttons and the reminder's chime."""

import math
import random
import struct
import wave
from pathlib import Path

RATE = 22050


def write(name, samples):
    loudest = max(abs(s) for s in samples) or 1.0
    scale = min(1.0, 0.9 / loudest)
    with wave.open(str(Path(__file__).with_name(name)), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", int(s * scale * 32767)) for s in samples))


def times(seconds):
    return (i / RATE for i in range(int(seconds * RATE)))


def click():
    """A soft wooden tap: a falling tone under a breath of noise."""
    noise = random.Random(1)
    return [
        0.35 * math.exp(-t * 70) * math.sin(2 * math.pi * (900 - 2500 * t) * t)
        + 0.05 * math.exp(-t * 250) * noise.uniform(-1, 1)
        for t in times(0.09)
    ]


def hover():
    """Hardly there: it comes with every move over the button row."""
    return [
        0.10 * math.exp(-t * 60) * min(1.0, t * 400) * math.sin(2 * math.pi * 1320 * t) for t in times(0.07)
    ]


def bell(t, pitch):
    if t < 0:
        return 0.0
    partials = ((1.0, 1.0, 2.6), (2.0, 0.35, 4.0), (3.01, 0.12, 6.5), (4.2, 0.05, 9.0))
    tone = sum(share * math.exp(-t * fall) * math.sin(2 * math.pi * pitch * ratio * t) for ratio, share, fall in partials)
    return tone * min(1.0, t * 200)


def alarm():
    """Three rising bells and the first again below them; faded out so that it ends without a click."""
    notes = ((0.0, 659.26), (0.28, 783.99), (0.56, 1046.5), (0.95, 523.25))
    return [
        0.3 * sum(bell(t - start, pitch) for start, pitch in notes) * min(1.0, (2.0 - t) / 0.3) for t in times(2.0)
    ]


if __name__ == "__main__":
    write("NIMClick.wav", click())
    write("NIMOver.wav", hover())
    write("alarm001.wav", alarm())
