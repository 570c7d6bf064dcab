"""Answers as honest services write them: the samples of the protocol, varied by chance, in each encoding.

`documents()` yields the name of a document and its bytes in every encoding, which all say the same.
"""

import copy
import random
import re
import xml.etree.ElementTree as etree

COUNT = 400  # in five encodings each
SEED = 20240305
XSI = "http://www.w3.org/2001/XMLSchema-instance"
MOST_OF_ONE = 40

#: Name in the declaration, name for Python, and what stands in front of the bytes.
ENCODINGS = (
    ("utf-8", "utf-8", b""),
    ("UTF-16", "utf-16-le", b"\xff\xfe"),
    ("UTF-16", "utf-16-be", b"\xfe\xff"),
    ("windows-1251", "cp1251", b""),
    ("ISO-8859-1", "iso-8859-1", b""),
)

TEXTS = (
    "", "Спасибо за покупку!", "–– две черты ––", "a < b && c > d", "]]>", "'\"", "кавычки «ёлочки»", "😀", "=" * 300,
    "<!DOCTYPE a [<!ENTITY b 'c'>]>", "<a>" * 300, "строка\nстрока", "\u3c3e\u013c", "%1 %n ${x}", "слово " * 500,
)

#: What stands once in an answer is never doubled.
REPEATED = ("Item", "Coupon", "InstantCoupon", "ExtendedAttribute")


def parents(tree):
    return [(parent, child) for parent in tree.iter() for child in parent]


def local(element):
    return re.sub(r"^\{.*\}", "", element.tag)


def vary(tree, chance):
    """Other values, other numbers of what there may be several of, elements that are absent or said to be nothing."""
    for parent, child in parents(tree):
        if local(child) in REPEATED and chance.random() < 0.5:
            for _ in range(chance.randrange(MOST_OF_ONE)):
                parent.append(copy.deepcopy(child))
    for parent, child in parents(tree):
        if len(child) or local(child) == "ReturnCode":
            continue
        draw = chance.random()
        if draw < 0.1:
            parent.remove(child)
        elif draw < 0.2:
            child.text = None
            child.set(f"{{{XSI}}}nil", "true")
        elif re.fullmatch(r"-?[\d.]+", child.text or ""):
            child.text = f"{chance.uniform(-10, 100_000):.{chance.randrange(5)}f}"
        elif draw < 0.6:
            child.text = chance.choice(TEXTS)


def dressed(tree, chance):
    """The text of the tree as another writer would write it."""
    if chance.random() < 0.5:
        etree.indent(tree, chance.choice((" ", "  ", "\t")))
    text = etree.tostring(tree, encoding="unicode", short_empty_elements=chance.random() < 0.5)
    # The service's own names stand without a prefix, which is how they are looked for.
    text = re.sub(r"xmlns:(ns\d)=(\S*/loyalty/processing\b)", r"xmlns=\2", re.sub(r"(</?)ns1:", r"\1", text))
    if chance.random() < 0.3:
        text = text.replace("\n", "\r\n")
    if chance.random() < 0.3:
        # Of ASCII only: a section cannot hold a reference to what an encoding has not.
        text = re.sub(r">([^<&\x80-\U0010ffff]+)</", r"><![CDATA[\1]]></", text)
    if chance.random() < 0.3:
        text = "<!-- <a> don't -->" + text + "<!-- > -->"
    if chance.random() < 0.2:
        text = "<?xml-stylesheet href='a>b'?>" + text
    return text.replace('"', "'") if chance.random() < 0.2 and "'" not in text else text


def in_every_encoding(text, chance):
    quote = chance.choice("'\"")
    for declared, codec, mark in ENCODINGS:
        declaration = f"<?xml version={quote}1.0{quote} encoding={quote}{declared}{quote}?>"
        is_needed = codec in ("cp1251", "iso-8859-1")
        yield mark + ((declaration if is_needed or chance.random() < 0.7 else "") + text).encode(
            codec, "xmlcharrefreplace")


def large():
    """A cheque of ten thousand positions, and one of a thousand with a dozen attributes each."""
    position = "<Item><PositionNumber>{}</PositionNumber><Summ>10.00</Summ><Discount>1.00</Discount>" \
        "<SummDiscounted>9.00</SummDiscounted><ActiveChargedBonus>1</ActiveChargedBonus>{}</Item>"
    attribute = "<ExtendedAttribute><Key>Key{}</Key><Value>Значение</Value></ExtendedAttribute>"
    around = "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body><ChequeResponse>{}</ChequeResponse>" \
        "</s:Body></s:Envelope>"
    attributes = "".join(attribute.format(number) for number in range(12))
    yield "ten thousand positions", around.format("".join(position.format(number, "") for number in range(10_000)))
    yield "a thousand positions with attributes", around.format(
        "".join(position.format(number, attributes) for number in range(1_000)))


def documents(samples):
    chance = random.Random(SEED)
    files = [*sorted(samples.glob("*-answer.xml")), samples / "fault.xml"]
    for number in range(COUNT):
        file = files[number % len(files)]
        tree = etree.parse(file).getroot()
        if number >= len(files):
            vary(tree, chance)
        yield f"{file.stem} {number}", list(in_every_encoding(dressed(tree, chance), chance))
    for name, text in large():
        yield name, list(in_every_encoding(text, chance))


def long_answer(samples, positions):
    """A calculation of so many positions, in bytes."""
    text = (samples / "sale-soft-answer.xml").read_text()
    item = re.search(r"[ \t]*<Item>.*?</Item>\n", text, re.DOTALL)[0]
    return text.replace(item, item * positions, 1).encode()
