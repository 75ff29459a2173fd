"""Prints telephone numbers as people store them in Berlin, each with its E.164 form.

    python3 examplenumbers.py own-area-numbers spellings

The numbers are all the examples of Debian's python3-phonenumbers, and what the two files hold, one a
line: numbers of the own area without its code, and other spellings. It prints

    number   region, input, E.164   for every spelling of an example
    local    DE,     input, E.164   for the numbers of the own area
    spelling DE,     input, E.164   for the other spellings
    total    regions, examples      what the library knows

between tabs. Nothing is left out: a number that the library finds invalid ends the script.
"""

import sys

import phonenumbers
from phonenumbers import PhoneNumberFormat, PhoneNumberType

OWN_REGION = "DE"
OWN_AREA = "030"
TYPES = PhoneNumberType.values()


def e164(number):
    return phonenumbers.format_number(number, PhoneNumberFormat.E164)


def examples():
    """Region and number; one number can be the example of several types."""
    for region in sorted(phonenumbers.SUPPORTED_REGIONS):
        numbers = [phonenumbers.example_number_for_type(region, kind) for kind in TYPES]
        numbers.append(phonenumbers.example_number(region))
        for number in {e164(number): number for number in numbers if number}.values():
            yield region, number
    for code in sorted(phonenumbers.COUNTRY_CODES_FOR_NON_GEO_REGIONS):
        yield f"+{code}", phonenumbers.example_number_for_non_geo_entity(code)


def people(prefix, groups):
    """What people make of the groups of digits behind a prefix."""
    first, rest = groups[0], groups[1:]
    yield " ".join([prefix, f"({first})", "-".join(rest)]).strip()
    yield "/".join([prefix + first, " ".join(rest)]).rstrip("/")
    yield "  " + "-".join([prefix, first, *rest]) + " "


def groups_of(formatted):
    """The groups of digits of a formatted number."""
    return "".join(c if c.isdigit() else " " for c in formatted).split()


def international(number):
    """The spellings for callers from abroad, with "+" and with "00"."""
    digits = e164(number)[1:]
    formatted = phonenumbers.format_number(number, PhoneNumberFormat.INTERNATIONAL)
    country, *groups = groups_of(formatted)
    for prefix in ("+", "00"):
        yield prefix + digits
        yield formatted.replace("+", prefix)
        yield from people(prefix + country, groups)
    yield phonenumbers.format_out_of_country_calling_number(number, OWN_REGION)


def national(number):
    """The spellings within the own country."""
    formatted = phonenumbers.format_number(number, PhoneNumberFormat.NATIONAL)
    yield formatted
    yield "0" + phonenumbers.national_significant_number(number)
    first, *rest = groups_of(formatted)
    yield " ".join([f"({first})", "-".join(rest)]).strip()
    yield " " + "/".join([first, " ".join(rest)]).rstrip("/")


def lines_of(path):
    with open(path, encoding="ascii") as file:
        return file.read().splitlines()


def check(number):
    if not phonenumbers.is_valid_number(number):
        sys.exit(f"{e164(number)} is no valid number")


def main():
    count = 0
    for region, number in examples():
        check(number)
        count += 1
        spellings = list(international(number))
        if region == OWN_REGION:
            spellings += national(number)
        for spelling in dict.fromkeys(spellings):
            print("number", region, spelling, e164(number), sep="\t")
    for spelling in lines_of(sys.argv[1]):
        number = phonenumbers.parse(OWN_AREA + spelling, OWN_REGION)
        check(number)
        print("local", OWN_REGION, spelling, e164(number), sep="\t")
    for spelling in lines_of(sys.argv[2]):
        number = phonenumbers.parse(spelling, OWN_REGION)
        check(number)
        print("spelling", OWN_REGION, spelling, e164(number), sep="\t")
    regions = phonenumbers.SUPPORTED_REGIONS | phonenumbers.COUNTRY_CODES_FOR_NON_GEO_REGIONS
    print("total", len(regions), count, sep="\t")


main()
