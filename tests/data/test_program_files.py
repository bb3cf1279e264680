"""The settings file and the folders the program writes into."""

import os
import unittest

from shipped import data_path


class ProgramFiles(unittest.TestCase):
    def test_default_settings_bytes(self):
        with open(data_path("System", "Settings.nks"), "rb") as f:
            self.assertEqual(
                f.read(),
                b"Nebkaro Settings: \r\n\r\nLibrary = Basic\r\nDirection = Left\r\n"
                b"Dictionary Name = Words.nkd\r\nShow About = True\r\n"
                b"Show Dictionary Info = True\r\n\r\n")

    def test_default_dictionary_exists(self):
        self.assertTrue(os.path.isfile(data_path("Dictionaries", "Words.nkd")))

    def test_images_folder_is_shipped_empty(self):
        self.assertEqual(os.listdir(data_path("Images")), [".gitkeep"])


if __name__ == "__main__":
    unittest.main()
