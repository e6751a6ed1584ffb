#!/usr/bin/env python3
"""Second, naive decoder of monitor descriptions, written down without a look at the product's: as long as both agree on
every block below, neither has a slip of its own.

Writes cases to standard output, each as a line "NAME LENGTH SIZE BLOCK", BLOCK in hexadecimal digits, and SIZE bytes of
the report that is expected of the first LENGTH bytes of it."""
import math
import random
import struct
import sys

HEADER = bytes([0, 255, 255, 255, 255, 255, 255, 0])


def single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


def hexes(values):
    return "[" + " ".join("%02X" % v for v in values) + "]"


def yes(word, value, yes="Supported", no="Not Supported"):
    return word + (yes if value else no)


def bits(value):
    """Bit 7 first."""
    return [value // 2 ** i % 2 for i in range(7, -1, -1)]


def letters(b):
    number = b[8] * 256 + b[9]
    return "".join(chr(number // 32 ** i % 32 + 64) for i in (2, 1, 0))


def video_input(value):
    digital, level1, level0, pedestal, separate, composite, green, serration = bits(value)
    if digital:
        out = ["   Digital Input"]
        if serration:
            out += ["   VESA DFP 1.x TMDS CRGB", "   1 pixel/clock", "   Up to 8 bits/color MSB aligned", "   DE active high"]
        else:
            out += ["   Not VESA DFP 1.x TMDS CRGB Compliant"]
        return out
    out = ["Analog Input"]
    out += ["   " + {"00": "0.700, 0.300 (1.000 V p-p)", "01": "0.714, 0.286 (1.000 V p-p)",
                     "10": "1.000, 0.400 (1.400 V p-p)", "11": "0.700, 0.000 (0.700 V p-p)"}["%d%d" % (level1, level0)]]
    out += [yes("   Pedestal: ", pedestal, "Expected", "Not Expected")]
    out += [yes("   Separate Syncs: ", separate)]
    out += [yes("   Composite Syncs: ", composite)]
    out += [yes("   Sync-on-Green: ", green)]
    out += [yes("   Serration during composite or SoG: ", serration, "Required", "Not Required")]
    return out


def size(word, cm):
    return "Max. %s Image Size = %d.000 cm or %.3f in" % (word, cm, single(cm / 2.54))


def features(value):
    standby, suspend, off, type1, type0, srgb, preferred, gtf = bits(value)
    kind = {(0, 0): "Monochrome / grayscale display", (0, 1): "RGB Color display",
            (1, 0): "Non-RGB multicolor display (e.g. RGY)", (1, 1): "Undefined"}[type1, type0]
    return [yes("DPMS Standby: ", standby), yes("DPMS Suspend: ", suspend),
            yes("DPMS Active Off/Very Low Power: ", off), "Display Type: " + kind,
            yes("Color Space: ", srgb, "sRGB standard default", "Non-Standard"),
            yes("Preferred Timing Mode: ", preferred, "Defined in Detailed Timing Block #1",
                "Not Defined in Detailed Timing Block #1"),
            yes("Default GTF: ", gtf)]


def colors(b):
    def point(high_x, high_y, low, at):
        x = b[high_x] * 4 + (b[low] >> at) % 4
        y = b[high_y] * 4 + (b[low] >> (at - 2)) % 4
        return "(%.3f, %.3f)" % (x / 1024, y / 1024)
    return ["Red   = " + point(27, 28, 25, 6), "Green = " + point(29, 30, 25, 2),
            "Blue  = " + point(31, 32, 26, 6), "White = " + point(33, 34, 26, 2)]


ESTABLISHED = [("Established Timings I", 35, """720 x 400 @ 70 Hz (IBM, VGA)
720 x 400 @ 88 Hz (IBM, XGA2)
640 x 480 @ 60 Hz (IBM, VGA)
640 x 480 @ 67 Hz (Apple, Mac II)
640 x 480 @ 72 Hz (VESA)
640 x 480 @ 75 Hz (VESA)
800 x 600 @ 56 Hz (VESA)
800 x 600 @ 60 Hz (VESA)"""), ("Established Timings II", 36, """800 x 600 @ 72 Hz (VESA)
800 x 600 @ 75 Hz (VESA)
832 x 624 @ 75 Hz (Apple, Mac II)
1024 x 768 @ 87 Hz(I) (IBM)
1024 x 768 @ 60 Hz (VESA)
1024 x 768 @ 70 Hz (VESA)
1024 x 768 @ 75 Hz (VESA)
1280 x 1024 @ 75 Hz (VESA)"""), ("Manufacturer's Timings", 37, "1152 x 870 @ 75 Hz (Apple, Mac II)")]


def standard(b0, b1):
    if (b0, b1) == (1, 1):
        return "Unused"
    across = (b0 + 31) * 8
    down, word = [(across * 10 / 16, "16:10"), (across * 3 / 4, "4:3"),
                  (across * 4 / 5, "5:4"), (across * 9 / 16, "16:9")][b1 // 64]
    return "%.0f x %.0f @ %.0f Hz (%s)" % (across, single(down), b1 % 64 + 60, word)


def told_by_monitor(d):
    tag = d[3]
    text = d[5:18].decode("latin-1")
    if tag == 255:
        return ["   Monitor Serial Number: " + text + "\n"]
    if tag == 254:
        return ["   ASCII String", "       " + text + "\n"]
    if tag == 253:
        return ["   Monitor Range Limits", "      Min. Vertical   rate: %d Hz" % d[5],
                "      Max. Vertical   rate: %d Hz" % d[6], "      Min. Horizontal rate: %d kHz" % d[7],
                "      Max. Horizontal rate: %d kHz" % d[8], "      Max. Supported Pixel Clock: %d MHz" % (d[9] * 10)
                if d[9] else "      Max. Supported Pixel Clock: 00 MHz"]
    if tag == 252:
        return ["   Monitor Name: " + text + "\n"]
    return ["   " + {251: "Color Point Data", 250: "Standard Timing Identifications", 16: "Dummy Descriptor"}.get(
        tag, "Defined by Manufacturer" if tag < 16 else "Currently Undefined")]


def timing(d):
    def joined(low, high_nibble):
        return low + 256 * high_nibble
    out = ["Pixel Clock: %.3f MHz" % ((d[0] + 256 * d[1]) / 100)]
    for word, number, unit in [
            ("Horizontal Active", joined(d[2], d[4] // 16), "pixels"), ("Horizontal Blanking", joined(d[3], d[4] % 16), "pixels"),
            ("Vertical   Active", joined(d[5], d[7] // 16), "pixels"), ("Vertical   Blanking", joined(d[6], d[7] % 16), "pixels"),
            ("Horizontal Sync Offset", joined(d[8], d[11] // 64), "pixels"),
            ("Horizontal Sync Pulse Width", joined(d[9], d[11] // 16 % 4), "pixels"),
            ("Vertical   Sync Offset", d[10] // 16 + 16 * (d[11] // 4 % 4), "pixels"),
            ("Vertical   Sync Pulse Width", d[10] % 16 + 16 * (d[11] % 4), "pixels"),
            ("Horizontal Image Size", joined(d[12], d[14] // 16), "mm"),
            ("Vertical   Image Size", joined(d[13], d[14] % 16), "mm")]:
        out += ["%s: %d %s" % (word, number, unit)]
    out += ["Horizontal Border: %d" % d[15], "Vertical   Border: %d" % d[16], "Non-Interlaced"]
    _, stereo1, stereo0, sync1, sync0, two, one, _ = bits(d[17])
    out += ["Stereoscopic display" if stereo1 or stereo0 else "Normal display, no stereo"]
    kind = sync1 * 2 + sync0
    out += [["Analog composite", "Bipolar analog composite", "Digital composite", "Digital separate"][kind]]
    if kind == 3:
        out += [yes("Vertical  Polarity: ", two, "Positive", "Negative"), yes("Horizontal Polarity: ", one, "Positive", "Negative")]
    else:
        out += ["Don't Serrate" if two else "Serrate"]
        if kind == 2:
            out += [yes("Composite Polarity: ", one, "Positive", "Negative")]
        else:
            out += ["Sync-on-RGB" if one else "Sync-on-Green"]
    return out


def report(block, length):
    text = "Raw data (hexadecimal):\n"
    length = min(length, 128)
    b = block[:length]
    for i in range(length):
        text += ("\n" if i % 16 == 0 else "") + "  %02X" % b[i]
    if length < 128:
        return text + "\n\nEDID data block is too short. Expected at least 128 bytes. Not decoding."
    text += "\n\nDecoded data -- corresponding raw data shown as hexadecimal in []:"

    def raw(indent, values):
        nonlocal text
        text += "\n\n" + " " * indent + hexes(values)

    def say(indent, lines):
        nonlocal text
        for line in [lines] if isinstance(lines, str) else lines:
            text += "\n" + " " * indent + line

    def title(word):
        nonlocal text
        text += "\n\n   " + word

    raw(3, b[0:8])
    say(3, "Normal Header" if b[0:8] == HEADER else "Invalid Header! Expected: 00 FF FF FF FF FF FF 00")
    title("Vendor/Product Identification")
    raw(6, b[8:10])
    say(6, "ID Manufacturer Name (EISA 3-character code) = " + letters(b))
    raw(6, b[10:12])
    say(6, "ID Product Code (hexadecimal)                = %02X%02X" % (b[11], b[10]))
    raw(6, b[12:16])
    say(6, "ID Serial Number (hexadecimal)               = " + b[15:11:-1].hex().upper())
    raw(6, b[16:18])
    say(6, "Manufactured: Week %d of %d" % (b[16], 1990 + b[17]))
    raw(3, b[18:20])
    say(3, "EDID Version %d.%d\n" % (b[18], b[19]))
    say(3, "Basic Display Parameters / Features")
    raw(6, b[20:21])
    say(6, ["Video Input Definition:"] + video_input(b[20]))
    raw(6, b[21:22])
    say(6, size("Horizontal", b[21]))
    raw(6, b[22:23])
    say(6, size("Vertical  ", b[22]))
    diagonal = single(math.sqrt(b[21] ** 2 + b[22] ** 2))
    title("   Max. Diagonal   Image Size = %.3f cm or %.3f in (calculated)" % (diagonal, single(diagonal / 2.54)))
    raw(6, b[23:24])
    say(6, "Display Transfer Characteristic (Gamma) = " + ("Not Defined Here" if b[23] == 255 else "1.000"))
    raw(6, b[24:25])
    say(6, features(b[24]))
    title("Color Characteristics")
    raw(6, b[25:35])
    say(6, colors(b))
    for word, at, rows in ESTABLISHED:
        title(word)
        raw(6, b[at:at + 1])
        say(6, [yes((row + ":").ljust(36), bit) for row, bit in zip(rows.split("\n"), bits(b[at]))])
    say(6, ["Reserved %d: %d" % (i, bits(b[37])[7 - i]) for i in (6, 5, 4, 3, 2, 1, 0)])
    for n in range(8):
        pair = b[38 + 2 * n:40 + 2 * n]
        title("Standard Timing Identification #%d" % (n + 1))
        raw(6, pair)
        say(6, standard(*pair))
    for n in range(4):
        d = b[54 + 18 * n:72 + 18 * n]
        title("Detailed Timing Description #%d" % (n + 1))
        raw(6, d)
        if d[0] == d[1] == 0:
            say(6, ["Monitor Descriptor Block"] + told_by_monitor(d))
        else:
            say(6, timing(d))
    raw(3, b[126:127])
    say(3, "Extension Flag: %d extension blocks follow" % b[126])
    raw(3, b[127:128])
    right = -sum(b[:127]) % 256
    say(3, "Normal Checksum" if b[127] == right else "Invalid Checksum! Expected (hex): %02X" % right)
    return text


def closed(block):
    """With the right checksum, and padded to a record."""
    block = bytearray(block[:127])
    block.append(-sum(block) % 256)
    return bytes(block) + bytes(128)


def text_descriptor(tag, text):
    return bytes([0, 0, 0, tag, 0]) + (text + b"\n" + b" " * 13)[:13]


def limits(low, high, slow, fast, clock):
    return bytes([0, 0, 0, 253, 0, low, high, slow, fast, clock, 0, 10]) + b" " * 6


# Timings of the VESA monitor timing standard and of CEA-861: clock in 10 kHz, then active, front porch, sync and back
# porch across and down, flags.
MODES = [(2518, 640, 16, 96, 48, 480, 10, 2, 33, 0x18), (4000, 800, 40, 128, 88, 600, 1, 4, 23, 0x1E),
         (6500, 1024, 24, 136, 160, 768, 3, 6, 29, 0x18), (10800, 1280, 48, 112, 248, 1024, 1, 3, 38, 0x1E),
         (14850, 1920, 88, 44, 148, 1080, 4, 5, 36, 0x1E), (15400, 1920, 48, 32, 80, 1200, 3, 6, 26, 0x1A),
         (16200, 1600, 64, 192, 304, 1200, 1, 3, 46, 0x1E), (24150, 2560, 48, 32, 80, 1440, 3, 5, 33, 0x1A),
         (7425, 1280, 110, 40, 220, 720, 5, 5, 20, 0x1E), (26850, 2560, 48, 32, 80, 1600, 3, 6, 37, 0x9A)]


def detailed(mode, width, height):
    clock, ha, hf, hs, hb, va, vf, vs, vb, flags = mode
    hblank, vblank = hf + hs + hb, vf + vs + vb
    return bytes([clock % 256, clock // 256, ha % 256, hblank % 256, ha // 256 * 16 + hblank // 256, va % 256, vblank % 256,
                  va // 256 * 16 + vblank // 256, hf % 256, hs % 256, vf % 16 * 16 + vs % 16,
                  hf // 256 * 64 + hs // 256 * 16 + vf // 16 * 4 + vs // 16, width % 256, height % 256,
                  width // 256 * 16 + height // 256, 0, 0, flags])


def monitor(dice, code):
    """One that a maker might have built."""
    mode, other = dice.sample(MODES, 2)
    width, height = dice.randint(200, 900), dice.randint(150, 500)
    packed = sum((ord(c) - 64) * 32 ** i for i, c in enumerate(reversed(code)))
    analog = dice.random() < 0.4
    b = bytearray(HEADER + struct.pack(">H", packed) + dice.randbytes(6))
    b += bytes([dice.randint(1, 53), dice.randint(3, 34), 1, dice.choice([1, 2, 3, 4])])
    b += bytes([dice.randint(0, 127) if analog else dice.choice([128, 129, 165]), width // 10, height // 10, dice.choice([120, 255]), dice.randint(0, 255)])
    b += dice.randbytes(10) + dice.randbytes(3)
    for _ in range(8):
        b += bytes([1, 1]) if dice.random() < 0.4 else bytes([dice.randint(0, 255), dice.randint(0, 255)])
    name = (code + " %d%s" % (dice.randint(15, 55), dice.choice(["", " WIDE", "P", "XL"]))).encode()
    b += detailed(mode, width, height)
    b += dice.choice([detailed(other, width, height), text_descriptor(254, b"REV %d" % dice.randint(0, 99))])
    b += dice.choice([limits(50, 76, 30, 83, 17), text_descriptor(255, b"SN%08d" % dice.randint(0, 10 ** 8))])
    b += text_descriptor(252, name)
    return closed(b + bytes([dice.choice([0, 0, 0, 1])]))


def cases():
    dice = random.Random(861)
    base = monitor(dice, "KQX")

    def changed(*changes):
        block = bytearray(base)
        for at, values in changes:
            block[at:at + len(values)] = values
        return bytes(block)

    for i in range(48):
        code = "".join(chr(dice.randint(65, 90)) for _ in range(3))
        yield "monitor-%d-%s" % (i, code), 256, monitor(dice, code)
    for value in range(256):
        for at in (8, 9, 16, 17, 20, 21, 22, 23, 24, 25, 26, 35, 36, 37, 126, 127):
            yield "byte-%d-is-%d" % (at, value), 256, changed((at, [value]))
        yield "flags-%d" % value, 256, changed((71, [value]))
        yield "tag-%d" % value, 256, changed((72, [0, 0, 0, value, 0]))
        yield "limits-%d" % value, 256, changed((90, limits(value, 255 - value, value ^ 85, value ^ 170, value)))
        yield "standard-%d" % value, 256, changed((38, [value, 1, 1, value, value, value, 255 - value, value]))
        yield "text-%d" % value, 256, changed((108, [0, 0, 0, 252, 0] + [value] * 13))
    for at in range(8):
        yield "header-%d" % at, 256, changed((at, [base[at] ^ 1]))
    yield "zero-clock-low-byte", 256, changed((54, [0, 1]))
    yield "zero-clock-high-byte", 256, changed((54, [1, 0]))
    for word, byte in ("zero", 0), ("full", 255):
        yield "all-" + word, 256, bytes([byte]) * 256
    for length in (0, 1, 8, 9, 15, 16, 17, 100, 127, 128, 129, 256):
        yield "length-%d" % length, length, base
    for i in range(400):
        yield "random-%d" % i, 256, dice.randbytes(256)


if __name__ == "__main__":
    for name, length, block in cases():
        text = report(block, length).encode("latin-1")
        sys.stdout.buffer.write(b"%s %d %d %s\n" % (name.encode(), length, len(text), block.hex().encode()))
        sys.stdout.buffer.write(text)
