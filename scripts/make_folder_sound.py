#!/usr/bin/env python3
"""Writes the built-in header sound, a short wooden click, as a RIFF WAVE file.

    python3 scripts/make_folder_sound.py [OUT]   (default: src/control/resources/folder_sound.wav)

The output is byte-for-byte reproducible: the noise comes from a fixed linear
congruential generator, not from Python's random module. The file has the
layout the control expects of its built-in sound: PCM, one channel, 22,050
samples per second, 16 bits per sample, 9,266 bytes of samples, 9,458 bytes in
all (a LIST/INFO chunk naming the sound makes up the difference).
"""

import math
import os
import struct
import sys

SAMPLE_RATE = 22050
BITS_PER_SAMPLE = 16
CHANNELS = 1
DATA_BYTES = 9266
FILE_BYTES = 9458
SAMPLE_COUNT = DATA_BYTES // 2

PEAK = 0.7 * 32767          # loud enough to hear, well clear of clipping
ATTACK_S = 0.0005           # a click starts almost at once
TONE_DECAY_S = 0.009        # the body of the click rings for a few milliseconds
NOISE_DECAY_S = 0.002       # the tap itself is a very short burst of noise
TONES_HZ = ((1650.0, 1.0), (3900.0, 0.45))
ECHO_AT_S = 0.038           # the folder settling: a second, softer tap
ECHO_GAIN = 0.35
FADE_S = 0.010              # the last samples fade to exact silence


def noise():
    """Deterministic white noise in [-1, 1)."""
    state = 0x2545F491
    while True:
        state = (1103515245 * state + 12345) & 0x7FFFFFFF
        yield state / 0x40000000 - 1.0


def tap(t, noise_value):
    if t < 0:
        return 0.0
    attack = min(1.0, t / ATTACK_S)
    body = sum(gain * math.sin(2 * math.pi * hz * t) for hz, gain in TONES_HZ)
    return attack * (body * math.exp(-t / TONE_DECAY_S)
                     + 0.8 * noise_value * math.exp(-t / NOISE_DECAY_S))


def samples():
    source = noise()
    raw = []
    for n in range(SAMPLE_COUNT):
        t = n / SAMPLE_RATE
        value = tap(t, next(source)) + ECHO_GAIN * tap(t - ECHO_AT_S, next(source))
        remaining = (SAMPLE_COUNT - 1 - n) / SAMPLE_RATE
        raw.append(value * min(1.0, remaining / FADE_S))
    scale = PEAK / max(abs(v) for v in raw)
    return [round(v * scale) for v in raw]


def chunk(tag, payload):
    if len(payload) % 2:
        payload += b"\0"
    return tag + struct.pack("<I", len(payload)) + payload


def info_chunk(size):
    """A LIST/INFO chunk of exactly `size` bytes, header included."""
    fields = chunk(b"INAM", b"FOLDER_SOUND\0") + chunk(b"ISFT", b"OrrinQuiver make_folder_sound.py\0")
    comment_bytes = size - 8 - 4 - len(fields) - 8
    comment = b"Built-in header click of the navigation bar."
    assert 0 < len(comment) < comment_bytes and comment_bytes % 2 == 0
    fields += chunk(b"ICMT", comment.ljust(comment_bytes, b"\0"))
    return chunk(b"LIST", b"INFO" + fields)


def wave():
    block_align = CHANNELS * BITS_PER_SAMPLE // 8
    fmt = chunk(b"fmt ", struct.pack("<HHIIHH", 1, CHANNELS, SAMPLE_RATE,
                                     SAMPLE_RATE * block_align, block_align, BITS_PER_SAMPLE))
    data = chunk(b"data", struct.pack("<%dh" % SAMPLE_COUNT, *samples()))
    info = info_chunk(FILE_BYTES - 12 - len(fmt) - len(data))
    body = b"WAVE" + fmt + info + data
    result = b"RIFF" + struct.pack("<I", len(body)) + body
    assert len(result) == FILE_BYTES
    return result


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "src", "control", "resources",
                                                             "folder_sound.wav")
    with open(out, "wb") as f:
        f.write(wave())


if __name__ == "__main__":
    main()
