"""Makes AIS sentences: messages of ITU-R M.1371 in the armouring of IEC 61162.

Values are raw, as the message carries them; texts are strings of the
six-bit set.
"""

SIX_BIT = ("@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_"
           " !\"#$%&'()*+,-./0123456789:;<=>?")


def number(value, width):
    """Two's complement, most significant bit first."""
    return format(value & (1 << width) - 1, "0%db" % width)


def text(value, characters):
    padded = value.ljust(characters, "@")[:characters]
    return "".join(number(SIX_BIT.index(c), 6) for c in padded)


def class_a(kind, mmsi, status, turn, speed, accuracy, longitude, latitude,
            course, heading, second, manoeuvre=0, raim=0, radio=0):
    return (number(kind, 6) + number(0, 2) + number(mmsi, 30)
            + number(status, 4) + number(turn, 8) + number(speed, 10)
            + number(accuracy, 1) + number(longitude, 28)
            + number(latitude, 27) + number(course, 12) + number(heading, 9)
            + number(second, 6) + number(manoeuvre, 2) + number(0, 3)
            + number(raim, 1) + number(radio, 19))


def static_and_voyage(mmsi, imo, callsign, name, ship_type, bow, stern, port,
                      starboard, fix, month, day, hour, minute, draught,
                      destination, dte=0):
    return (number(5, 6) + number(0, 2) + number(mmsi, 30) + number(0, 2)
            + number(imo, 30) + text(callsign, 7) + text(name, 20)
            + number(ship_type, 8) + number(bow, 9) + number(stern, 9)
            + number(port, 6) + number(starboard, 6) + number(fix, 4)
            + number(month, 4) + number(day, 5) + number(hour, 5)
            + number(minute, 6) + number(draught, 8) + text(destination, 20)
            + number(dte, 1) + number(0, 1))


def aircraft(mmsi, altitude, speed, accuracy, longitude, latitude, course,
             second, dte=0, raim=0, radio=0):
    return (number(9, 6) + number(0, 2) + number(mmsi, 30)
            + number(altitude, 12) + number(speed, 10) + number(accuracy, 1)
            + number(longitude, 28) + number(latitude, 27)
            + number(course, 12) + number(second, 6) + number(0, 8)
            + number(dte, 1) + number(0, 3) + number(0, 1) + number(raim, 1)
            + number(0, 1) + number(radio, 19))


def class_b(mmsi, speed, accuracy, longitude, latitude, course, heading,
            second, raim=0, radio=0):
    return (number(18, 6) + number(0, 2) + number(mmsi, 30) + number(0, 8)
            + number(speed, 10) + number(accuracy, 1) + number(longitude, 28)
            + number(latitude, 27) + number(course, 12) + number(heading, 9)
            + number(second, 6) + number(0, 2) + "1" + "0" + "1" + "1" + "1"
            + "0" + number(raim, 1) + number(radio, 20))


def class_b_extended(mmsi, speed, accuracy, longitude, latitude, course,
                     heading, second, name, ship_type, bow, stern, port,
                     starboard, fix=1):
    return (number(19, 6) + number(0, 2) + number(mmsi, 30) + number(0, 8)
            + number(speed, 10) + number(accuracy, 1) + number(longitude, 28)
            + number(latitude, 27) + number(course, 12) + number(heading, 9)
            + number(second, 6) + number(0, 4) + text(name, 20)
            + number(ship_type, 8) + number(bow, 9) + number(stern, 9)
            + number(port, 6) + number(starboard, 6) + number(fix, 4)
            + number(0, 1) + number(0, 1) + number(0, 1) + number(0, 4))


def class_b_name(mmsi, name):
    return (number(24, 6) + number(0, 2) + number(mmsi, 30) + number(0, 2)
            + text(name, 20))


def class_b_static(mmsi, ship_type, vendor, callsign, bow, stern, port,
                   starboard):
    return (number(24, 6) + number(0, 2) + number(mmsi, 30) + number(1, 2)
            + number(ship_type, 8) + text(vendor, 7) + text(callsign, 7)
            + number(bow, 9) + number(stern, 9) + number(port, 6)
            + number(starboard, 6) + number(0, 6))


def checksum(body):
    total = 0
    for byte in body.encode("ascii"):
        total ^= byte
    return "%02X" % total


def sentence(body, start="!"):
    return "%s%s*%s" % (start, body, checksum(body))


def sentences(bits, channel="A", sequence=0):
    """One sentence, or as many as the 60 characters of each make."""
    fill = -len(bits) % 6
    bits += "0" * fill
    payload = ""
    for at in range(0, len(bits), 6):
        value = int(bits[at:at + 6], 2)
        payload += chr(value + (48 if value < 40 else 56))
    parts = [payload[at:at + 60] for at in range(0, len(payload), 60)]
    out = []
    for part_number, part in enumerate(parts, 1):
        out.append(sentence("AIVDM,%d,%d,%s,%s,%s,%d" % (
            len(parts), part_number, sequence if len(parts) > 1 else "",
            channel, part, fill if part_number == len(parts) else 0)))
    return out
