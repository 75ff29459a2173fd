#!/usr/bin/env python3
"""Compares what norvik-konverter takes from vCards with what python3-vobject and
python3-phonenumbers read there: oracle.py NORVIK-KONVERTER [COUNT [SEED]]

Generated cards of the versions 2.1, 3.0 and 4.0, folded, quoted-printable, in several character
sets: every number must arrive, dialled as its international form says, and every name. Run by
hand; the tests need neither the packages nor this."""
import base64
import csv
import io
import os
import quopri
import random
import subprocess
import sys
import tempfile

import phonenumbers
import vobject

FAMILIES = ["Müller", "Grünwald", "Ørsted", "O'Hara", "Weiß; Söhne", "Çelik", "Lange, jun.", "Ng",
            "von der Heide", "García", "Straßberger", "Ahlers"]
GIVEN = ["Anna", "Jörg", "Zoë", "Karl-Heinz", "", "René", "Ida Marie"]
REGIONS = ["DE", "DE", "DE", "AT", "CH", "FR", "IT", "US", "GB", "NL", "PL", "TR", "JP", "SM", "LU"]
TYPES = ["HOME", "WORK", "CELL", "FAX", "VOICE", ""]


def numbers(rng):
    """A number as people write it, and its international form."""
    region = rng.choice(REGIONS)
    kind = rng.choice([phonenumbers.PhoneNumberType.FIXED_LINE, phonenumbers.PhoneNumberType.MOBILE])
    number = phonenumbers.example_number_for_type(region, kind)
    form = phonenumbers.PhoneNumberFormat
    ways = [form.E164, form.INTERNATIONAL, form.RFC3966]
    if region == "DE":
        ways.append(form.NATIONAL)
    if rng.random() < 0.2:
        text = phonenumbers.format_out_of_country_calling_number(number, "DE")
    else:
        text = phonenumbers.format_number(number, rng.choice(ways))
    if rng.random() < 0.15 and text.startswith("+") and region == "DE":
        text = text.replace("+49", "+49 (0)", 1)
    if rng.random() < 0.3:
        text = text.replace(" ", rng.choice(["-", "/", ".", "\u00a0", "\u2011"]))
    return text, number


def escaped(text):
    return text.replace("\\", "\\\\").replace(",", "\\,").replace(";", "\\;")


def line(rng, version, name, parameters, value):
    """A content line's bytes, folded at random."""
    head = name + "".join(";" + parameter for parameter in parameters if parameter)
    if version == "2.1" and not value.isascii():
        charset = rng.choice(["UTF-8", "ISO-8859-1", "WINDOWS-1252"])
        try:
            data = value.encode(charset)
        except UnicodeEncodeError:
            charset, data = "UTF-8", value.encode()
        soft = quopri.encodestring(data).decode().replace("\n", "\r\n")
        return (f"{head};CHARSET={charset};ENCODING=QUOTED-PRINTABLE:{soft}\r\n").encode()
    data = f"{head}:{value}".encode()
    if version != "2.1" and len(data) > 30 and rng.random() < 0.5:
        width = rng.choice([20, 60, 75])
        data = b"\r\n ".join(data[i:i + width] for i in range(0, len(data), width))
    return data + b"\r\n"


def card(rng):
    version = rng.choice(["2.1", "3.0", "4.0"])
    family, given = rng.choice(FAMILIES), rng.choice(GIVEN)
    out = [b"BEGIN:VCARD\r\n", line(rng, version, "VERSION", [], version)]
    out.append(line(rng, version, "N", [], f"{escaped(family)};{escaped(given)};;;"))
    out.append(line(rng, version, "FN", [], escaped(f"{given} {family}".strip())))
    expected = []
    for index in range(rng.randint(1, 5)):
        text, number = numbers(rng)
        kind = rng.choice(TYPES)
        parameters = [kind if version == "2.1" else f"TYPE={kind}" if kind else ""]
        if version == "4.0" and text.startswith("tel:"):
            parameters.append("VALUE=uri")
        group = f"item{index}." if rng.random() < 0.2 else ""
        out.append(line(rng, version, group + "TEL", parameters, text))
        if number not in expected:
            expected.append(number)
    if rng.random() < 0.3:
        photo = base64.b64encode(rng.randbytes(300)).decode()
        how = {"2.1": ["JPEG", "ENCODING=BASE64"], "3.0": ["ENCODING=b", "TYPE=JPEG"]}.get(version, [])
        folded = "\r\n ".join(photo[i:i + 70] for i in range(0, len(photo), 70))
        out.append(("PHOTO" + "".join(";" + p for p in how) + ":" + folded + "\r\n\r\n").encode())
    out.append(b"END:VCARD\r\n")
    return b"".join(out), family, given, expected


def dialled(number):
    text = phonenumbers.format_number(number, phonenumbers.PhoneNumberFormat.E164)
    return "0" + text[3:] if number.country_code == 49 else "00" + text[1:]


def converted(converter, data):
    """Name and number of each entry."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "a.vcf")
        settings = os.path.join(folder, "a.ini")
        with open(path, "wb") as file:
            file.write(data)
        with open(settings, "w", encoding="ascii") as file:
            file.write("[common]\r\nCountryCode=49\r\nRegionCode=40\r\n")
        run = subprocess.run([converter, "--ini", settings, "--unsortiert", "--anfuehrungszeichen", "--von", "vcard", path,
                              "-", "--nach", "csv"], capture_output=True, check=False)
    table = list(csv.reader(io.StringIO(run.stdout.decode("cp1252")), delimiter=";"))
    return [row[:2] for row in table[1:]], run.stderr.decode()


def main():
    converter = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 500
    rng = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)
    failures = 0
    total = 0
    unread = 0
    while count > 0:
        cards = [card(rng) for _ in range(min(count, 200))]
        count -= len(cards)
        rows, report = converted(converter, b"".join(data for data, *_ in cards))
        for data, family, given, expected in cards:
            mine, rows = rows[:len(expected)], rows[len(expected):]
            total += len(expected)
            name = f"{family}, {given}" if given else family
            if [row[1] for row in mine] != [dialled(number) for number in expected] or not all(
                    name.startswith(row[0].split(" (")[0]) for row in mine):
                failures += 1
                print(data.decode("latin-1"), name, [dialled(n) for n in expected], mine, sep="\n")
            try:
                read = vobject.readOne(data.decode("latin-1"), allowQP=True)
                if len(read.contents.get("tel", [])) < len(expected):
                    print("read otherwise:", data.decode("latin-1"))
                    failures += 1
            except Exception:
                unread += 1
        if rows:
            print("left over:", rows)
            failures += 1
        for finding in report.splitlines():
            if "gekürzt" not in finding and "Doppelte" not in finding:
                print(finding) if failures else None
    print(f"{total} numbers, {failures} differences; vobject read all but {unread} cards")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
