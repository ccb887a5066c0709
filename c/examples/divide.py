#!/usr/bin/env python3
import ctypes

library = ctypes.CDLL("libplcalc_c.so")
library.plc_division_text.restype = ctypes.c_char_p


class Request(ctypes.Structure):
    _fields_ = [("struct_size", ctypes.c_uint32), ("cut", ctypes.c_int32), ("index", ctypes.c_int64),
                ("ring", ctypes.c_int64), ("bearing_gon", ctypes.c_double), ("points", ctypes.c_double * 4),
                ("along", ctypes.c_double), ("measured", ctypes.c_int32), ("pieces", ctypes.c_int32),
                ("alternative", ctypes.c_int64), ("rounded", ctypes.c_int32), ("decimals", ctypes.c_int32),
                ("rounding_tolerance", ctypes.c_double), ("ask_library", ctypes.c_int32),
                ("reserved", ctypes.c_int32)]


class Amount(ctypes.Structure):
    _fields_ = [("struct_size", ctypes.c_uint32), ("given", ctypes.c_int32),
                ("first", ctypes.c_double), ("second", ctypes.c_double)]


yard = (ctypes.c_double * 12)(0, 0, 60, 0, 60, 20, 40, 20, 40, 50, 0, 50)
request = Request(struct_size=ctypes.sizeof(Request), cut=1)  # perpendicular to the side of index 0
thirds = (Amount * 2)(*[(ctypes.sizeof(Amount), 2, 1, 3)] * 2)
parcel, division = ctypes.c_void_p(), ctypes.c_void_p()

code = library.plc_parcel_make(yard, ctypes.c_int64(6), ctypes.byref(parcel))
if code == 0:
    code = library.plc_divide(parcel, ctypes.byref(request), thirds, ctypes.c_int64(2), ctypes.byref(division))
if code in (0, 1):
    segment = (ctypes.c_double * 4)()
    for line in (0, 1):
        if library.plc_division_segment(division, ctypes.c_int64(line), ctypes.c_int64(0), segment) == 0:
            print("from %.4f %.4f to %.4f %.4f" % tuple(segment))
    print(library.plc_division_text(division).decode())
library.plc_division_free(division)
library.plc_parcel_free(parcel)
