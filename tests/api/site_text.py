"""What a page of the site must have kept of the Markdown from which it is made: every word, every block of code as it is written,
and each table, list, heading, picture and link."""

import difflib
import html
import re
import textwrap

FENCE = re.compile(r"^```.*\n((?:(?!```).*\n)*)```$", re.M)
INDENTED = re.compile(r"(?<=\n\n)((?:    .*\n|\n(?=    ))+)")
LINK = re.compile(r"(?<!!)\[((?:`[^`]*`|[^\]`])*)\]\(([^)]*)\)")
PICTURE = re.compile(r"!\[([^\]]*)\]\(([^)]*)\)")


def joined(text):
    return "".join(text.split())


def dedented(block):
    return re.sub(r"^    ", "", block, flags=re.M)


class Source:
    """A Markdown file, taken apart."""

    def __init__(self, text):
        self.code = []

        def keep(match):
            self.code.append(dedented(match.group(1)) if match.re is INDENTED else match.group(1))
            return "\0"

        text = INDENTED.sub(keep, FENCE.sub(keep, text)) if text.count("```") else INDENTED.sub(keep, text)
        self.pictures = [target.rpartition("/")[2] for _, target in PICTURE.findall(text)]
        self.links = LINK.findall(text)
        self.headings = re.findall(r"^##+ (.*)$", text, re.M)
        self.rows = len(re.findall(r"^\|.*\|$", text, re.M)) - len(re.findall(r"^\|[-:| ]+\|$", text, re.M))
        self.items = len(re.findall(r"^ *(?:[-*]|\d+\.) ", text, re.M))
        self.words = plain(text)


def plain(text):
    """The prose without its marks, as a reader sees it."""
    text = text.partition("\n")[2].replace("\0", "")  # the first heading is the page's title
    text = re.sub(r"<!--.*?-->", "", text, flags=re.S)
    text = LINK.sub(r"\1", PICTURE.sub(r"\1", text))
    text = re.sub(r"^\|[-:| ]+\|$|^#+ |^ *(?:[-*]|\d+\.) ", "", text, flags=re.M)
    spans = re.split(r"(`[^`]+`)", text)
    text = "".join(span.strip("`") if span.startswith("`") else re.sub(r"[*|]", "", span) for span in spans)
    return joined(text)


class Shown:
    """The same of a page as the browser gets it."""

    def __init__(self, text):
        body = re.search(r'<div class="contents">(.*)</div><!-- contents -->', text, re.S).group(1)
        blocks = re.compile(r'<div class="fragment">(.*?)</div><!-- fragment -->|<pre class="fragment">(.*?)</pre>', re.S)
        self.code = [unmarked("\n".join(re.findall(r'<div class="line">(.*?)</div>', block, re.S)) if block else bare)
                     for block, bare in blocks.findall(body)]
        body = blocks.sub("", body)
        self.pictures = re.findall(r'<(?:img|object)[^>]* (?:src|data)="([^"]*)"', body)
        self.links = set(re.findall(r'<a class="el" href="([^"]*)"', body))
        self.headings = [unmarked(found).strip() for found in re.findall(r"<h[1-6]>(.*?)</h[1-6]>", body, re.S)]
        self.rows = body.count('<tr class="markdownTable')
        self.items = body.count("<li>")
        self.words = joined(unmarked(body))


def unmarked(text):
    return html.unescape(re.sub(r"<[^>]*>", "", text)).replace("\N{NO-BREAK SPACE}", " ").replace("\N{ZERO WIDTH SPACE}", "")


def first_difference(one, other):
    for tag, i, j, k, m in difflib.SequenceMatcher(None, one, other, autojunk=False).get_opcodes():
        if tag != "equal":
            return f"'{one[max(0, i - 30):j + 10][:100]}' is '{other[max(0, k - 30):m + 10][:100]}'"
    return None


def trimmed(block):
    return [line.rstrip() for line in textwrap.dedent(block).rstrip().splitlines()]


def losses(markdown, page, page_of):
    """What the page has lost or shows otherwise. page_of(target) is the page to which a link must lead, or None."""
    wanted, shown = Source(markdown), Shown(page)
    if wanted.words != shown.words:
        yield first_difference(wanted.words, shown.words)
    if [trimmed(block) for block in wanted.code] != [trimmed(block) for block in shown.code]:
        yield f"{len(wanted.code)} blocks of code, of which {len(shown.code)} come out, or come out otherwise"
    for what in ("pictures", "rows", "items"):
        if getattr(wanted, what) != getattr(shown, what):
            yield f"{what}: {getattr(wanted, what)} in the source, {getattr(shown, what)} on the page"
    headings = [re.sub(r"[`*]", "", LINK.sub(r"\1", heading)) for heading in wanted.headings]
    if headings != shown.headings:
        yield f"headings: {headings} in the source, {shown.headings} on the page"
    for text, target in wanted.links:
        page = page_of(target)
        if page and page not in shown.links:
            yield f"'{' '.join(text.split())}' does not lead to {page}"
