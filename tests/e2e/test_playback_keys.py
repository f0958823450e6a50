"""Keystroke texts typed by a run arrive at another program's window as
exactly the key events the keystroke-text language names."""
from playback_fixture import PlaybackTestCase, step

SHIFT = 16


def press(*keys):
    return [event for key in keys for event in (("down", key), ("up", key))]


def shifted(key):
    return [("down", SHIFT), ("down", key), ("up", key), ("up", SHIFT)]


# Keystroke text of one step, the key events it sends, the characters they
# make. Each text follows the one before it in the same run.
TEXTS = [
    ("Hello", shifted(72) + press(69, 76, 76, 79), "Hello"),
    ("%ca$c", [("down", 17), ("down", 65), ("up", 65), ("up", 17)], "\x01"),
    ("%r$r", press(13), "\r"),
    ("%f1", press(112), ""),
    # The "%" left pending makes the next step's "." the Down Arrow, which
    # stays down until a "$." releases it.
    ("50%", press(53, 48), "50"),
    (".", [("down", 40)], ""),
    ("$.", [("up", 40)], ""),
    ("%X", shifted(53) + shifted(88), "%X"),
    ("%%", shifted(53) + shifted(53), "%%"),
    ("  abc  ", press(65, 66, 67), "abc"),
]


class KeystrokeTextTest(PlaybackTestCase):
    def test_texts_arrive_as_exactly_the_named_key_events(self):
        probe, _ = self.open_probe("Probe Keys")
        self.open_script([step(keys=text) for text, _, _ in TEXTS])
        self.give_focus("Probe Keys")

        self.press("Start")
        self.wait_for_steps(len(TEXTS))

        self.assertEqual([event for _, events, _ in TEXTS for event in events], probe.keys())
        self.assertEqual("".join(chars for _, _, chars in TEXTS), probe.text())
        self.assertEqual([text.strip() for text, _, _ in TEXTS], self.cells(4), "texts are trimmed in the grid")
        self.assert_no_errors_logged(self.folder)
