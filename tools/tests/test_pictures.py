"""Sign pictures: where they are, their GIF header, facing, scale and ink."""

import unittest

from PIL import Image, ImageChops, ImageFont, ImageOps

from shipped import data_path

import gen_pictures
import layout
import nkfile
import signs

LIBRARIES = (("Basic", "BasicList.csv"), ("Extended", "Extendedlist.csv"))


def picture(library, direction, code):
    return data_path(library, direction, code[0], code + ".GIF")


def grey(path):
    return Image.open(path).convert("L")


class Pictures(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.codes = {lib: sorted(set(nkfile.read_file_fields(data_path("Lists", name))))
                     for lib, name in LIBRARIES}

    def sample(self, library):
        """Every Basic sign; every 20th Extended sign (the rest are checked by
        the header test and the data check)."""
        codes = self.codes[library]
        return codes if library == "Basic" else codes[::20]

    def test_header_size_is_the_picture_size(self):
        # The program takes a picture's natural size from the GIF's logical
        # screen, so it must agree with the image itself.
        for library, _ in LIBRARIES:
            for code in self.codes[library]:
                for direction in ("Left", "Right"):
                    path = picture(library, direction, code)
                    w, h = layout.gif_size(path)
                    if library == "Basic" or code in self.sample(library)[:50]:
                        with Image.open(path) as im:
                            self.assertEqual(im.size, (w, h), path)
                    self.assertTrue(0 < w < 200 and 0 < h < 100, path)

    def test_right_is_the_mirror_of_left(self):
        for library, _ in LIBRARIES:
            for code in self.sample(library):
                with self.subTest(library=library, code=code):
                    left = grey(picture(library, "Left", code))
                    right = grey(picture(library, "Right", code))
                    diff = ImageChops.difference(ImageOps.mirror(left), right)
                    self.assertIsNone(diff.getbbox())

    def test_tight_box_with_one_pixel_white_margin(self):
        for library, _ in LIBRARIES:
            for code in self.sample(library):
                with self.subTest(library=library, code=code):
                    im = grey(picture(library, "Left", code))
                    ink = im.point(lambda v: 255 if v < 255 else 0)
                    w, h = im.size
                    self.assertEqual(ink.getbbox(), (1, 1, w - 1, h - 1))

    def test_left_is_the_font_drawing(self):
        # The font draws its signs facing left, as the Unicode charts do; the
        # Left folder must hold that drawing, not its mirror image.
        font = ImageFont.truetype(signs.FONT_PATH, size=gen_pictures.EM_PIXELS
                                  * gen_pictures.SUPERSAMPLE)
        basic = dict(signs.basic_signs())
        for code in ("A1", "G1", "G17", "I9", "D21"):
            with self.subTest(code=code):
                drawn = gen_pictures.render(font, basic[code]).convert("L")
                left = grey(picture("Basic", "Left", code))
                self.assertIsNone(ImageChops.difference(drawn, left).getbbox())
                right = grey(picture("Basic", "Right", code))
                self.assertIsNotNone(ImageChops.difference(drawn, right).getbbox())
