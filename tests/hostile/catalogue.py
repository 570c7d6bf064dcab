"""Answers that are made to hurt whoever reads them, each named by what it tries.

`documents()` yields the name, what becomes of it ("refused" before or by the parser, or "handled" as any other answer),
and the bytes. They are made anew each time: some are as long as an answer may be.
"""

LONGEST = 8 * 1024 * 1024  # what the HTTP client takes at most
ELEMENTS = 200_000
DEPTH = 256
ATTRIBUTES = 256
REFERENCES = 1_000_000

REFUSED = "refused"
HANDLED = "handled"


def envelope(text):
    return f"<Envelope><Body><ChequeResponse>{text}</ChequeResponse></Body></Envelope>"


def nested(depth, name="a"):
    return f"<{name}>" * depth + f"</{name}>" * depth


def filled(unit, around=envelope, limit=LONGEST):
    """As many units as fit."""
    return around(unit * ((limit - len(around("").encode())) // len(unit.encode())))


def attributes(count, form=' a{}="1"'):
    return "".join(form.format(number) for number in range(count))


def entities(levels, repeats=10):
    first = '<!ENTITY e0 "ha">'
    others = "".join(f'<!ENTITY e{level} "{f"&e{level - 1};" * repeats}">' for level in range(1, levels))
    return f"<!DOCTYPE a [{first}{others}]><a>&e{levels - 1};</a>"


def defaults(count, uses):
    """A document type that gives each empty element attributes of its own."""
    listed = "".join(f" x{number} CDATA 'v'" for number in range(count))
    return f"<!DOCTYPE r [<!ATTLIST b{listed}>]><r>{'<b/>' * uses}</r>"


def deep():
    yield "nested one level too deep", REFUSED, nested(DEPTH + 1)
    yield "nested 5 000 deep", REFUSED, nested(5_000)
    yield "nested 20 000 deep, which overflows the stack", REFUSED, nested(20_000)
    yield "nested 50 000 deep, which takes half a minute", REFUSED, nested(50_000)
    yield "nested and never closed", REFUSED, filled("<a>", str)
    yield "nested behind a comment with a quote in it", REFUSED, "<!-- ' -->" + nested(20_000)
    yield "nested behind a section with tags in it", REFUSED, "<r><![CDATA[</r>']]>" + nested(20_000) + "</r>"
    yield "nested behind an instruction with a quote in it", REFUSED, "<r><?p ' ?>" + nested(20_000) + "</r>"
    yield "nested behind a bracket in a value", REFUSED, "<r><b c='/>'>" + nested(20_000) + "</b></r>"
    yield "nested behind closing tags that close nothing", REFUSED, "<r/>" + "</r>" * 30_000 + nested(30_000)
    yield "nested behind a document type", REFUSED, "<!DOCTYPE a SYSTEM \"x'>\">" + nested(20_000)
    yield "nested positions", REFUSED, envelope(nested(20_000, "Item"))
    yield "nested under many names", REFUSED, "".join(f"<a{n}>" for n in range(50_000))
    yield "nested as deep as allowed, again and again", HANDLED, f"<r>{nested(DEPTH - 1) * 700}</r>"


def wide():
    yield "one element too many", REFUSED, f"<r>{'<b/>' * ELEMENTS}</r>"
    yield "empty elements to the last byte", REFUSED, filled("<b/>")
    yield "as many elements as allowed", HANDLED, f"<r>{'<b/>' * (ELEMENTS - 1)}</r>"
    yield "as many elements as allowed with texts", HANDLED, f"<r>{'<b>text</b>' * (ELEMENTS - 1)}</r>"
    yield "as many names as elements", HANDLED, f"<r>{''.join(f'<b{n}/>' for n in range(ELEMENTS - 1))}</r>"
    yield "comments to the last byte", REFUSED, filled("<!---->")
    yield "comments between texts", REFUSED, filled("a<!---->")
    yield "sections to the last byte", REFUSED, filled("<![CDATA[]]>")
    yield "sections with a character each", REFUSED, filled("<![CDATA[a]]>")
    yield "instructions to the last byte", REFUSED, filled("<?a?>")
    yield "comments in front of the first tag", REFUSED, filled("<!---->", lambda text: text + "<a/>")
    yield "instructions behind the last tag", REFUSED, filled("<?a?>", lambda text: "<a/>" + text)


def decorated():
    yield "a million attributes on one element", REFUSED, f"<a{attributes(1_000_000, ' a{}=' + chr(34) * 2)[: LONGEST - 8]}/>"
    yield "one attribute too many", REFUSED, f"<a{attributes(ATTRIBUTES + 1)}/>"
    yield "as many attributes as allowed on every element", REFUSED, filled(f"<b{attributes(ATTRIBUTES)}/>")
    yield "one attribute on every element", REFUSED, f"<r>{'<b c=%s/>' % (chr(34) + '1' + chr(34)) * (ELEMENTS - 1)}</r>"
    yield "the same attribute again and again", REFUSED, f"<a{' b=' + chr(34) * 2}{' b=%s' % (chr(34) * 2) * 100_000}/>"
    yield "a value to the last byte", HANDLED, filled("a", lambda text: f'<a b="{text}"/>')
    yield "a value that is never closed", REFUSED, filled("a", lambda text: f'<a b="{text}')
    yield "references in a value to the last byte", REFUSED, filled("&amp;", lambda text: f'<a b="{text}"/>')
    yield "as many references in a value as allowed", HANDLED, f'<a b="{"&amp;" * REFERENCES}"/>'
    yield "a name of an attribute to the last byte", REFUSED, filled("a", lambda text: f'<a {text}=""/>')
    yield "a million namespaces", REFUSED, f"<a{attributes(400_000, ' xmlns:a{}=' + chr(34) + 'u' + chr(34))}/>"
    spaces = attributes(ATTRIBUTES, ' xmlns:n{}="u"')
    yield "namespaces at every level, looked up again and again", REFUSED, (
        f"<r>{(f'<a{spaces}>') * 250}{'<b:c xmlns:b=%s/>' % (chr(34) + 'v' + chr(34)) * 100_000}{'</a>' * 250}</r>")
    yield "no attribute but equal signs", REFUSED, filled("=", lambda text: f"<a {text}/>")


def typed():
    yield "a laughing entity", REFUSED, entities(10)
    yield "entities that name one another", REFUSED, '<!DOCTYPE a [<!ENTITY b "&c;"><!ENTITY c "&b;">]><a>&b;</a>'
    yield "a long entity named often", REFUSED, (
        f'<!DOCTYPE a [<!ENTITY b "{"x" * 50_000}">]><a>{"&b;" * 17_000}</a>')
    yield "entities in values", REFUSED, f'<!DOCTYPE a [<!ENTITY b "{"x" * 50_000}">]><a c="{"&b;" * 17_000}"/>'
    yield "an entity of a file", REFUSED, '<!DOCTYPE a [<!ENTITY b SYSTEM "file:///etc/passwd">]><a>&b;</a>'
    yield "an entity of a server", REFUSED, '<!DOCTYPE a [<!ENTITY b SYSTEM "http://127.0.0.1/">]><a>&b;</a>'
    yield "a parameter entity", REFUSED, '<!DOCTYPE a [<!ENTITY % b "<!ENTITY c \'d\'>">%b;]><a>&c;</a>'
    yield "an entity behind a comment that looks like the end", REFUSED, (
        "<!DOCTYPE a [<!-- ]><a/> --><!ENTITY b 'c'>]><a>&b;</a>")
    yield "an entity behind a default with a bracket", REFUSED, (
        "<!DOCTYPE a [<!ATTLIST a b CDATA ']>'><!ENTITY c 'd'>]><a>&c;</a>")
    yield "default attributes given to every element", REFUSED, defaults(256, 1_500)
    yield "a few default attributes given to every element", REFUSED, defaults(8, 199_000)
    yield "a long default attribute given to every element", REFUSED, (
        f"<!DOCTYPE r [<!ATTLIST b c CDATA '{'v' * 50_000}'>]><r>{'<b/>' * 100_000}</r>")
    yield "defaults with references", REFUSED, (
        f"<!DOCTYPE r [<!ATTLIST b c CDATA '{'&lt;' * 9_000}'>]><r>{'<b/>' * 20_000}</r>")
    yield "namespaces as defaults", REFUSED, "<!DOCTYPE r [<!ATTLIST b xmlns CDATA 'u'>]><r><b/></r>"
    yield "declared attributes to the last byte", REFUSED, filled(
        "<!ATTLIST a b CDATA #IMPLIED>", lambda text: f"<!DOCTYPE a [{text}]><a/>")
    yield "declared elements to the last byte", REFUSED, filled(
        "<!ELEMENT a ANY>", lambda text: f"<!DOCTYPE a [{text}]><a/>")
    yield "a content model nested to the last byte", REFUSED, (
        f"<!DOCTYPE a [<!ELEMENT a {'(' * 1_000_000}b{')' * 1_000_000}>]><a/>")
    yield "notations to the last byte", REFUSED, filled(
        "<!NOTATION a SYSTEM 'b'>", lambda text: f"<!DOCTYPE a [{text}]><a/>")
    yield "notations under many names", REFUSED, (
        f"<!DOCTYPE a [{''.join(f'<!NOTATION a{n} SYSTEM %s>' % repr('b') for n in range(250_000))}]><a/>")
    yield "comments in a document type to the last byte", REFUSED, filled(
        "<!---->", lambda text: f"<!DOCTYPE a [{text}]><a/>")
    yield "parameter references in a document type to the last byte", REFUSED, filled(
        "%a;", lambda text: f"<!DOCTYPE a SYSTEM 'x' [{text}]><a/>")
    yield "a document type of another server", HANDLED, '<!DOCTYPE a SYSTEM "http://127.0.0.1:9/x.dtd"><a/>'
    yield "references to what another file would declare", REFUSED, filled(
        "&b;", lambda text: f'<!DOCTYPE a SYSTEM "x"><a>{text}</a>')
    yield "references behind the last tag", REFUSED, filled("&b;", lambda text: f'<!DOCTYPE a SYSTEM "x"><a>{text}')
    yield "references in values to what another file would declare", REFUSED, filled(
        "&b;", lambda text: f'<!DOCTYPE a SYSTEM "x"><a c="{text}"/>')
    yield "as many of them as allowed", HANDLED, f'<!DOCTYPE a SYSTEM "x"><a c="{"&b;" * REFERENCES}"/>'
    yield "references to what nobody declares", REFUSED, filled("&b;")
    yield "document types one in another", REFUSED, filled("<!DOCTYPE a [", str)


def encoded():
    laughing = entities(10)
    bomb = nested(20_000)
    yield "an entity in UTF-7", REFUSED, (
        b"<?xml version='1.0' encoding='UTF-7'?>" + laughing.replace("&", "&").encode("utf-7"))
    for name in ("utf-16-le", "utf-16-be"):
        yield f"an entity in {name} without a mark", REFUSED, laughing.encode(name)
        yield f"an entity in {name}", REFUSED, ("\ufeff" + laughing).encode(name)
        yield f"nested in {name} without a mark", REFUSED, bomb.encode(name)
        yield f"nested in {name}", REFUSED, ("\ufeff" + bomb).encode(name)
    for name in ("utf-32-le", "utf-32-be"):
        yield f"nested in {name}", REFUSED, ("\ufeff" + bomb).encode(name)
    yield "an encoding that the bytes change over to", REFUSED, (
        b"<?xml version='1.0' encoding='UTF-16'?>" + bomb.encode("utf-16-le"))
    yield "an encoding of mainframes", REFUSED, b"<?xml version='1.0' encoding='IBM037'?>" + laughing.encode("cp037")
    yield "an encoding that nobody knows", REFUSED, b"<?xml version='1.0' encoding='x'?><a/>"
    yield "bytes that are no UTF-8", REFUSED, b"<a>\xc0\xbc" * 10 + b"\xff\xfe" * 100_000
    yield "an overlong bracket", REFUSED, b"<a>" + b"\xc0\xbca>" * 100_000 + b"</a>"
    yield "half a surrogate", HANDLED, ("\ufeff<a>" + "\ud800" * 100_000 + "</a>").encode("utf-16-le", "surrogatepass")
    yield "wide characters whose bytes are brackets", HANDLED, ("\ufeff<a>" + "\u3c3e" * 2_000_000 + "</a>").encode("utf-16-le")


def plain():
    yield "nothing", REFUSED, ""
    yield "blanks to the last byte", REFUSED, filled(" ", str)
    yield "zeros to the last byte", REFUSED, filled("\0", str)
    yield "brackets to the last byte", REFUSED, filled("<", str)
    yield "opened comments to the last byte", REFUSED, filled("<!--", str)
    yield "opened sections to the last byte", REFUSED, filled("<![CDATA[", lambda text: "<a>" + text)
    yield "opened instructions to the last byte", REFUSED, filled("<?a ", str)
    yield "quotes to the last byte", REFUSED, filled("'", lambda text: "<a " + text)
    yield "a name to the last byte", REFUSED, filled("a", lambda text: f"<{text}/>")
    yield "a text to the last byte", HANDLED, filled("a")
    yield "Cyrillic to the last byte", HANDLED, filled("ж")
    yield "references to the last byte", REFUSED, filled("&lt;")
    yield "numbered references to the last byte", REFUSED, filled("&#65;")
    yield "as many references as allowed", HANDLED, envelope("&lt;" * REFERENCES)
    yield "as many numbered references as allowed", HANDLED, envelope("&#65;" * REFERENCES)
    yield "line ends to the last byte", HANDLED, filled("\r")
    yield "brackets of sections to the last byte", HANDLED, filled("]")
    yield "a message to the last byte", HANDLED, filled("m", lambda text: envelope(f"<ChequeMessage>{text}</ChequeMessage>"))
    yield "delimiters to the last byte", HANDLED, filled("––", lambda text: envelope(f"<ChequeMessage>{text}</ChequeMessage>"))


def answered():
    """What the parser takes and the readers have to work through."""
    item = "<Item><PositionNumber>{}</PositionNumber><Summ>1</Summ></Item>"
    yield "sixty thousand positions", HANDLED, envelope("".join(item.format(n) for n in range(60_000)))
    for name in ("Item", "ExtendedAttribute", "Coupon"):
        levels = 250
        yield f"elements {name} at every level over as many leaves as allowed", HANDLED, (
            f"<{name}>" * levels + "<Key/>" * (ELEMENTS - levels) + f"</{name}>" * levels)
    coupon = "<Coupon><Number>{}</Number><ApplicabilityCode>1</ApplicabilityCode></Coupon>"
    yield "sixty thousand coupons", HANDLED, envelope("".join(coupon.format(n) for n in range(60_000)))
    instant = "<InstantCoupon><Number>{}</Number></InstantCoupon>"
    yield "thousands of coupons to print, none with a text", HANDLED, envelope(
        "<ChequeMessage>" + "–– x" * 3_000 + "</ChequeMessage>" + "".join(instant.format(n) for n in range(3_000)))
    attribute = "<ExtendedAttribute><Key>{}</Key><Value>1</Value></ExtendedAttribute>"
    yield "sixty thousand attributes of the cheque", HANDLED, envelope("".join(attribute.format(n) for n in range(60_000)))
    yield "numbers to the last byte", HANDLED, filled("9", lambda text: envelope(f"<Summ>{text}</Summ>"))


def documents():
    for family in (deep, wide, decorated, typed, encoded, plain, answered):
        for name, outcome, text in family():
            yield name, outcome, text if isinstance(text, bytes) else text.encode()
