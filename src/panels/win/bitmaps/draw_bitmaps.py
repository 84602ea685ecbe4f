#!/usr/bin/env python3
"""Draws the LAYER page's small bitmaps as 24-bit BMP files beside this
script. Each picture is a grid of letters, one a pixel; run it again after
changing one."""
import os
import struct

COLOURS = {
    '.': (240, 240, 240),  # the button face
    '#': (0, 0, 0),
    'w': (255, 255, 255),
    'g': (128, 128, 128),
    'r': (220, 0, 0),
    'b': (0, 70, 160),
    'y': (255, 236, 140),
    'o': (230, 140, 40),
}

PICTURES = {
    # The eye of a layer that shows.
    'ly_disp': [
        '....................',
        '.......######.......',
        '.....##wwwwww##.....',
        '...##ww######ww##...',
        '..#ww##bbbbbb##ww#..',
        '.#www#bb####bb#www#.',
        '.#www#bb####bb#www#.',
        '..#ww##bbbbbb##ww#..',
        '...##ww######ww##...',
        '.....##wwwwww##.....',
        '.......######.......',
        '....................',
    ],
    # A plane that takes part: its box is ticked.
    'ly_alp_e': [
        '############',
        '#wwwwwwwwww#',
        '#wwwwwwww#w#',
        '#wwwwwww##w#',
        '#w#wwww##ww#',
        '#w##ww##www#',
        '#ww####wwww#',
        '#www##wwwww#',
        '#wwwwwwwwww#',
        '#wwwwwwwwww#',
        '#wwwwwwwwww#',
        '############',
    ],
    # A plane switched off: an empty grey box.
    'ly_alp_d': [
        'gggggggggggg',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'g..........g',
        'gggggggggggg',
    ],
    # Transparency free to paint: a plain T.
    'ly_t0': [
        '................',
        '................',
        '...##########...',
        '...##########...',
        '.......##.......',
        '.......##.......',
        '.......##.......',
        '.......##.......',
        '.......##.......',
        '.......##.......',
        '................',
        '................',
    ],
    # Transparency protected: the T locked in a dark field.
    'ly_t1': [
        'bbbbbbbbbbbbbbbb',
        'bbbbbbbbbbbbbbbb',
        'bbbwwwwwwwwwwbbb',
        'bbbwwwwwwwwwwbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbwwbbbbbbb',
        'bbbbbbbbbbbbbbbb',
        'bbbbbbbbbbbbbbbb',
    ],
    # Images only: one sheet.
    'ly_s0': [
        '................',
        '................',
        '....########....',
        '....#wwwwww#....',
        '....#wwwwww#....',
        '....#wwwwww#....',
        '....#wwwwww#....',
        '....#wwwwww#....',
        '....#wwwwww#....',
        '....########....',
        '................',
        '................',
    ],
    # Every plane: sheets stacked.
    'ly_s1': [
        '........######..',
        '........#wwww#..',
        '.....######ww#..',
        '.....#wwww#ww#..',
        '..######ww#ww#..',
        '..#wwww#ww####..',
        '..#wwww#ww#.....',
        '..#wwww####.....',
        '..#wwww#........',
        '..#wwww#........',
        '..######........',
        '................',
    ],
    # The active plane while thumbnails are not redrawn: a pencil at work.
    'ly_actv': [
        'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy',
        'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy',
        'yyyyyyyyyyyyyyyyyyyyyyyy##yyyyyy',
        'yyyyyyyyyyyyyyyyyyyyyyy#rr#yyyyy',
        'yyyyyyyyyyyyyyyyyyyyyy#rrrr#yyyy',
        'yyyyyyyyyyyyyyyyyyyyy#grrr#yyyyy',
        'yyyyyyyyyyyyyyyyyyyy#oog##yyyyyy',
        'yyyyyyyyyyyyyyyyyyy#ooo#yyyyyyyy',
        'yyyyyyyyyyyyyyyyyy#ooo#yyyyyyyyy',
        'yyyyyyyyyyyyyyyyy#ooo#yyyyyyyyyy',
        'yyyyyyyyyyyyyyyy#ooo#yyyyyyyyyyy',
        'yyyyyyyyyyyyyyy#ooo#yyyyyyyyyyyy',
        'yyyyyyyyyyyyyy#ooo#yyyyyyyyyyyyy',
        'yyyyyyyyyyyyy#ooo#yyyyyyyyyyyyyy',
        'yyyyyyyyyyyy#ooo#yyyyyyyyyyyyyyy',
        'yyyyyyyyyyy#ooo#yyyyyyyyyyyyyyyy',
        'yyyyyyyyyy#www#yyyyyyyyyyyyyyyyy',
        'yyyyyyyyyy#ww#yyyyyyyyyyyyyyyyyy',
        'yyyyyyyyy#w##yyyyyyyyyyyyyyyyyyy',
        'yyyyyyyyy##yyyyyyyyyyyyyyyyyyyyy',
        'yyyyyy#####yyyyyyyyyyyyyyyyyyyyy',
        'yyy#####yyyyyyyyyyyyyyyyyyyyyyyy',
        'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy',
        'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy',
    ],
}


def write_bmp(path, rows):
    height, width = len(rows), len(rows[0])
    stride = (width * 3 + 3) & ~3
    pixels = bytearray()
    for row in reversed(rows):  # bottom-up
        assert len(row) == width, path
        for letter in row:
            r, g, b = COLOURS[letter]
            pixels += bytes((b, g, r))
        pixels += bytes(stride - width * 3)
    header = struct.pack('<2sIHHI', b'BM', 54 + len(pixels), 0, 0, 54)
    info = struct.pack('<IiiHHIIiiII', 40, width, height, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    with open(path, 'wb') as f:
        f.write(header + info + pixels)


if __name__ == '__main__':
    here = os.path.dirname(os.path.abspath(__file__))
    for name, rows in PICTURES.items():
        write_bmp(os.path.join(here, name + '.bmp'), rows)
