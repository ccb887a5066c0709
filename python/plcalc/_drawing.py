"""The plan that a notebook shows."""

_SIZE = 360.0    # of the longer side, pixels
_MARGIN = 24.0   # for the corners' numbers
_DIGIT = 7.0     # width of a digit of an area, pixels
_FILLS = ("#e8f1e4", "#fdf3d8", "#e3ecf7", "#f7e6e6", "#ece6f4", "#e2f2f1")


class _Frame:
    """From the parcel's coordinates to pixels, North up."""

    def __init__(self, outer):
        (self.west, south), (east, self.north) = outer.min(axis=0), outer.max(axis=0)
        largest = max(east - self.west, self.north - south)
        self.scale = _SIZE / largest if 0.0 < largest < float("inf") else 1.0
        self.width = (east - self.west) * self.scale + 2 * _MARGIN
        self.height = (self.north - south) * self.scale + 2 * _MARGIN

    def at(self, x, y):
        return (x - self.west) * self.scale + _MARGIN, (self.north - y) * self.scale + _MARGIN


def _path(frame, ring):
    return "M" + " L".join("%.2f %.2f" % frame.at(x, y) for x, y in ring.tolist()) + " Z"


def _text(x, y, size, text):
    return (f'<text x="{x:.1f}" y="{y:.1f}" font-size="{size}" text-anchor="middle" '
            f'dominant-baseline="middle">{text}</text>')


def _chords(rings, y):
    """Where a level line runs inside: pairs of x."""
    crossings = sorted(x1 + (y - y1) * (x2 - x1) / (y2 - y1)
                       for ring in rings for (x1, y1), (x2, y2) in zip(ring, ring[1:] + ring[:1]) if (y1 > y) != (y2 > y))
    return zip(crossings[::2], crossings[1::2])


def _label_place(rings):
    """The middle of the longest level chord, rather near half of the height, and its length; None where there is none."""
    low, high = min(y for _, y in rings[0]), max(y for _, y in rings[0])
    best = (0.0, None)
    for step in range(1, 20):
        part = step / 20.0
        y = low + part * (high - low)
        for west, east in _chords(rings, y):
            best = max(best, ((east - west) * (1.0 - abs(part - 0.5)), ((west + east) / 2.0, y, east - west)))
    return best[1]


def _label(frame, piece):
    """The area, where there is room for the most of it."""
    place = _label_place([ring.tolist() for ring in (piece.ring, *piece.holes)])
    text = f"{piece.area:.2f}"
    if place is None or place[2] * frame.scale < 0.6 * _DIGIT * len(text):
        return []
    return [_text(*frame.at(*place[:2]), 12, text)]


def _corner_numbers(frame, ring):
    """Beside each corner, outside; where corners crowd, the first of them."""
    turns_left = sum(x1 * y2 - x2 * y1 for (x1, y1), (x2, y2) in zip(ring, ring[1:] + ring[:1])) > 0.0
    taken = set()
    corners = [(number, vertex) for number, vertex in enumerate(ring)
               if number == 0 or vertex not in (ring[number - 1], ring[0])]
    for i, (number, corner) in enumerate(corners):
        before, after = corners[i - 1][1], corners[(i + 1) % len(corners)][1]
        x, y = _outside(before, corner, after, turns_left)
        at_x, at_y = frame.at(*corner)
        at_x, at_y = at_x + 12.0 * x, at_y - 12.0 * y
        cell = (at_x // 14.0, at_y // 10.0)
        if all((cell[0] + i, cell[1] + j) not in taken for i in (-1, 0, 1) for j in (-1, 0, 1)):
            taken.add(cell)
            yield _text(at_x, at_y, 10, number)


def _outside(before, corner, after, turns_left):
    """A direction out of the corner, of length 1: at right angles to the way from the one side into the other."""
    (x1, y1), (x2, y2) = _unit(before, corner), _unit(corner, after)
    x, y = _unit((0.0, 0.0), (x1 + x2, y1 + y2))
    return (y, -x) if turns_left else (-y, x)


def _unit(start, end):
    x, y = end[0] - start[0], end[1] - start[1]
    length = (x * x + y * y) ** 0.5
    return (x / length, y / length) if length > 0.0 else (0.0, 0.0)


def drawn(outer, holes, pieces, lines, said=""):
    """An SVG of the parcel, its pieces with their areas, its dividing lines and its corners by number; and below it what
    is said."""
    import numpy

    if len(outer) == 0 or not numpy.isfinite(outer).all():
        return '<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'
    with numpy.errstate(all="ignore"):
        frame = _Frame(outer)
    if not numpy.isfinite([frame.width, frame.height]).all():
        return '<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'
    width = max(frame.width, 0.9 * _DIGIT * len(said))
    height = frame.height + (_MARGIN if said else 0.0)
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height:.0f}" '
           f'viewBox="0 0 {width:.1f} {height:.1f}" font-family="sans-serif" fill="#222">']
    for piece in pieces:
        path = " ".join(_path(frame, ring) for ring in (piece.ring, *piece.holes))
        fill = _FILLS[piece.amount % len(_FILLS)]
        out.append(f'<path d="{path}" fill="{fill}" fill-rule="evenodd"/>')
    boundary = " ".join(_path(frame, ring) for ring in (outer, *holes))
    out.append(f'<path d="{boundary}" fill="none" stroke="#222" stroke-width="1.5"/>')
    for line in lines:
        for (x1, y1), (x2, y2) in line.segments:
            start, end = frame.at(x1, y1), frame.at(x2, y2)
            out.append('<line x1="%.2f" y1="%.2f" x2="%.2f" y2="%.2f" stroke="#c00" stroke-width="2"/>' % (*start, *end))
    for piece in pieces:
        out += _label(frame, piece)
    out += _corner_numbers(frame, outer.tolist())
    if said:
        out.append(_text(width / 2.0, frame.height, 11, said))
    return "\n".join([*out, "</svg>"])
