"""Well-known binary, as databases keep geometries."""

import struct

import numpy

_POLYGON, _MULTIPOLYGON = 3, 6
_Z, _M, _SRID = 0x80000000, 0x40000000, 0x20000000


class _Reader:
    def __init__(self, data):
        self.data, self.at = data, 0

    def take(self, order, form):
        size = struct.calcsize(order + form)
        if self.at + size > len(self.data):
            raise ValueError("the binary geometry ends too early")
        value, = struct.unpack_from(order + form, self.data, self.at)
        self.at += size
        return value

    def head(self):
        """(byte order, kind, dimensions)"""
        order = "<" if self.take("<", "B") == 1 else ">"
        code = self.take(order, "I")
        if code & _SRID:
            self.take(order, "I")
        more = bool(code & _Z) + bool(code & _M)
        kind = code & 0x1FFFFFFF
        more += (0, 1, 1, 2)[kind // 1000] if kind < 4000 else 0
        return order, kind % 1000, 2 + more

    def polygon(self, order, dimensions):
        rings = []
        for _ in range(self.take(order, "I")):
            count = self.take(order, "I")
            size = 8 * dimensions * count
            if self.at + size > len(self.data):
                raise ValueError("the binary geometry ends too early")
            numbers = numpy.frombuffer(self.data, order + "f8", dimensions * count, self.at)
            rings.append(numbers.reshape(count, dimensions)[:, :2].astype(float))
            self.at += size
        return rings


def rings_of(data):
    """The rings of a polygon, or of a multipolygon of one."""
    reader = _Reader(bytes(data))
    order, kind, dimensions = reader.head()
    if kind == _MULTIPOLYGON:
        count = reader.take(order, "I")
        if count != 1:
            raise ValueError(f"the multipolygon has {count} polygons; a parcel is one")
        order, kind, dimensions = reader.head()
    if kind != _POLYGON:
        raise ValueError("a parcel is a polygon")
    return reader.polygon(order, dimensions)


def _head(kind, srid):
    return struct.pack("<BII", 1, kind | _SRID, srid) if srid else struct.pack("<BI", 1, kind)


def polygon(rings, srid=0):
    """A polygon of rings whose first vertex is not repeated, as hexadecimal text."""
    parts = [_head(_POLYGON, srid), struct.pack("<I", len(rings))]
    for ring in rings:
        closed = numpy.concatenate((ring, ring[:1])).astype("<f8")
        parts += [struct.pack("<I", len(closed)), closed.tobytes()]
    return b"".join(parts).hex()


def lines(segments, srid=0):
    """A line of one segment, or a multiline of several, as hexadecimal text."""
    if len(segments) == 1:
        (start, end), = segments
        return (_head(2, srid) + struct.pack("<I4d", 2, *start, *end)).hex()
    parts = [_head(5, srid), struct.pack("<I", len(segments))]
    parts += [struct.pack("<BII4d", 1, 2, 2, *start, *end) for start, end in segments]
    return b"".join(parts).hex()
