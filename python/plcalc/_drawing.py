"""The plan that a notebook shows."""

_SIZE = 360.0    # of the longer side, pixels
_MARGIN = 24.0   # for the corners' numbers
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


def _label_place(ring):
    """Inside as a rule: the middle of the vertices' mean, or of the longest level chord where the mean lies outside."""
    x, y = ring.mean(axis=0).tolist()
    vertices = ring.tolist()
    crossings = sorted(x1 + (y - y1) * (x2 - x1) / (y2 - y1)
                       for (x1, y1), (x2, y2) in zip(vertices, vertices[1:] + vertices[:1]) if (y1 > y) != (y2 > y))
    chords = list(zip(crossings[::2], crossings[1::2]))
    if not chords or any(west <= x <= east for west, east in chords):
        return x, y
    west, east = max(chords, key=lambda chord: chord[1] - chord[0])
    return (west + east) / 2.0, y


def drawn(outer, holes, pieces, lines):
    """An SVG of the parcel, its pieces with their areas, its dividing lines and its corners by number."""
    import numpy

    if len(outer) == 0 or not numpy.isfinite(outer).all():
        return '<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'
    frame = _Frame(outer)
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{frame.width:.0f}" height="{frame.height:.0f}" '
           f'viewBox="0 0 {frame.width:.1f} {frame.height:.1f}" font-family="sans-serif" fill="#222">']
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
        out.append(_text(*frame.at(*_label_place(piece.ring)), 12, f"{piece.area:.2f}"))
    middle = frame.at(*outer.mean(axis=0).tolist())
    for number, vertex in enumerate(outer.tolist()):
        x, y = frame.at(*vertex)
        away = max(((x - middle[0]) ** 2 + (y - middle[1]) ** 2) ** 0.5, 1.0)
        out.append(_text(x + 12 * (x - middle[0]) / away, y + 12 * (y - middle[1]) / away, 10, number))
    return "\n".join([*out, "</svg>"])
