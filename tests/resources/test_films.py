#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The two films are what the player expects, loop without a jump, and tell nothing of where they were made."""
import json
import re
import statistics
import subprocess
import unittest
from pathlib import Path

VIDEOS = Path(__file__).resolve().parents[2] / "resources" / "videos"
FILMS = [VIDEOS / "illustration_awake.mov", VIDEOS / "illustration_asleep.mov"]
WIDTH, HEIGHT, FRAMES = 600, 400, 72


def probe(film):
    command = ["ffprobe", "-v", "error", "-count_frames", "-show_streams", "-show_format", "-of", "json", str(film)]
    return json.loads(subprocess.run(command, capture_output=True, check=True, timeout=60).stdout)


def brightness(film):
    """The frames as bytes of brightness."""
    command = ["ffmpeg", "-v", "error", "-i", str(film), "-vf", "extractplanes=y", "-f", "rawvideo", "-"]
    data = subprocess.run(command, capture_output=True, check=True, timeout=60).stdout
    size = WIDTH * HEIGHT
    return [data[at:at + size] for at in range(0, len(data), size)]


def change(one, other):
    return sum(abs(a - b) for a, b in zip(one, other)) / len(one)


def boxes(data):
    """Names and contents of a film's outermost boxes, in their order."""
    at = 0
    while at < len(data):
        size = int.from_bytes(data[at:at + 4], "big")
        yield data[at + 4:at + 8].decode(), data[at + 8:at + size]
        at += size


class Films(unittest.TestCase):
    def test_both_have_the_format_the_player_expects(self):
        for film in FILMS:
            with self.subTest(film.name):
                found = probe(film)
                self.assertEqual(["video"], [stream["codec_type"] for stream in found["streams"]])
                video = found["streams"][0]
                expected = {"codec_name": "h264", "width": WIDTH, "height": HEIGHT, "pix_fmt": "yuv420p",
                            "avg_frame_rate": "12/1", "r_frame_rate": "12/1", "nb_read_frames": str(FRAMES),
                            "start_pts": 0, "has_b_frames": 0}
                self.assertEqual(expected, {key: video.get(key) for key in expected})
                self.assertEqual(6.0, float(found["format"]["duration"]))

    def test_both_say_how_their_colours_are_meant(self):
        for film in FILMS:
            with self.subTest(film.name):
                video = probe(film)["streams"][0]
                expected = {"color_range": "tv", "color_space": "bt709", "color_primaries": "bt709",
                            "color_transfer": "bt709"}
                self.assertEqual(expected, {key: video.get(key) for key in expected})

    def test_both_are_small(self):
        for film in FILMS:
            with self.subTest(film.name):
                self.assertLessEqual(film.stat().st_size, 300_000)

    def test_the_index_comes_first(self):
        for film in FILMS:
            with self.subTest(film.name):
                names = [name for name, _ in boxes(film.read_bytes())]
                self.assertLess(names.index("moov"), names.index("mdat"))

    def test_nothing_tells_where_or_when_they_were_made(self):
        for film in FILMS:
            with self.subTest(film.name):
                data = film.read_bytes()
                self.assertFalse(b"x264 - core" in data, "the encoder names its settings")
                index = dict(boxes(data))["moov"]
                self.assertEqual([], re.findall(rb"/[a-z]{3,}|20\d\d-\d\d|\xa9[a-z]{3}", index))
                # version and flags, then the times of creation and of the last change
                header = index.index(b"mvhd") + 4
                self.assertEqual(bytes(12), index[header:header + 12])

    def test_the_last_frame_flows_into_the_first(self):
        for film in FILMS:
            with self.subTest(film.name):
                frames = brightness(film)
                self.assertEqual(FRAMES, len(frames))
                steps = [change(a, b) for a, b in zip(frames, frames[1:])]
                self.assertGreater(min(steps), 0.02, "something moves in every frame")
                self.assertLess(change(frames[-1], frames[0]), 2 * statistics.median(steps))


if __name__ == "__main__":
    unittest.main()
