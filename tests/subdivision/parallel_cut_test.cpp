// Parcels with sides of powers of two are worked by hand: every step is exact. The others come from the steps
// written down a second time in another language, in doubles without fused operations.

#include <gtest/gtest.h>

#include <limits>

#include "cut_parcels.h"
#include "cut_rows.h"
#include "support/bits.h"
#include "support/cut_state.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::Points;
using test::reversed;

const test::CutRow kRows[] = {
    {.what = "rectangle: the line meets the request at the second halving",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 2048,
     .line = {{128, 16}, {-0.0, 16}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 16, .AngLinea = 100, .AreaParziale = 2048}},
    {.what = "the same rectangle clockwise",
     .parcel = reversed(test::kRectangle),
     .side = 3,
     .area = 2048,
     .line = {{0, 16}, {128, 16}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 16, .AngLinea = 100, .AreaParziale = 2048}},
    {.what = "the closing side, from the last vertex to the first",
     .parcel = test::kRectangle,
     .side = 3,
     .area = 2048,
     .line = {{32, -0.0}, {32, 64}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 32, .AngLinea = 0, .AreaParziale = 2048}},
    {.what = "rectangle of 100 by 50 and 1000: within the relative 1e-6 of y = 10",
     .parcel = test::kSite,
     .side = 0,
     .area = 1000,
     .line = {{100, 0x1.3fffecp+3}, {-0.0, 0x1.3fffecp+3}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.3fffecp+3, .AngLinea = 100, .AreaParziale = 0x1.f3ffe0cp+9}},
    {.what = "a request that a vertex's line meets exactly waits for the next vertex",
     .parcel = test::kSloped,
     .side = 0,
     .area = 4096,
     .line = {{128, 32}, {-0.0, 32}},
     .counts = {.NumIntersez = 3, .NumPuntiParz = 7, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 32, .AngLinea = 100, .AreaParziale = 4096}},
    {.what = "an ulp less is met from that vertex, after many halvings",
     .parcel = test::kSloped,
     .side = 0,
     .area = 0x1.fffffffffffffp+11,
     .line = {{-0.0, 0x1.ffffep+4}, {0x1.00001p+7, 0x1.ffffep+4}},
     .counts = {.NumIntersez = 3, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.ffffep+4, .AngLinea = 100, .AreaParziale = 0x1.ffffep+11}},
    {.what = "the whole parcel: no vertex exceeds it, the first end is a probe's",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 8192,
     .line = {{128, 64}, {0, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = false, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 64, .AngLinea = 100, .AreaParziale = 8192}},
    {.what = "more than the parcel: the same",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 9000,
     .line = {{128, 64}, {0, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = false, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 64, .AngLinea = 100, .AreaParziale = 8192}},
    {.what = "an ulp less than the parcel: the relative 1e-6 is met before the edge",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 0x1.fffffffffffffp+12,
     .line = {{128, 0x1.ffffep+5}, {-0.0, 0x1.ffffep+5}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.ffffep+5, .AngLinea = 100, .AreaParziale = 0x1.ffffep+12}},
    {.what = "nothing requested: thirty halvings for each vertex, the last one's stay",
     .parcel = {{0, 0}, {16777216, 0}, {16777216, 16777216}, {0, 8388608}},
     .side = 0,
     .area = 0,
     .line = {{16777216, 0.0078125}, {-0.0, 0.0078125}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0.0078125, .AngLinea = 100, .AreaParziale = 131072}},
    {.what = "less than nothing: the first halving passes",
     .parcel = test::kRectangle,
     .side = 0,
     .area = -1,
     .line = {{128, 32}, {-0.0, 32}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 32, .AngLinea = 100, .AreaParziale = 4096}},
    {.what = "four crossings: the outermost two are the line",
     .parcel = test::kTeeth,
     .side = 0,
     .area = 5120,
     .line = {{128, 48}, {-0.0, 48}},
     .counts = {.NumIntersez = 4, .NumPuntiParz = 9, .Trovato = true, .NumPunti = 8, .IndiceInizio = 0},
     .measures = {.DistLinea = 48, .AngLinea = 100, .AreaParziale = 5120}},
    {.what = "from the teeth's side the line crosses a tooth alone",
     .parcel = test::kTeeth,
     .side = 2,
     .area = 512,
     .line = {{128, 56}, {-0.0, 56}},
     .counts = {.NumIntersez = 4, .NumPuntiParz = 9, .Trovato = true, .NumPunti = 8, .IndiceInizio = 2},
     .measures = {.DistLinea = 8, .AngLinea = 300, .AreaParziale = 512}},
    {.what = "the vertices are taken in the ring's order, not by distance",
     .parcel = {{0, 0}, {128, 0}, {128, 16}, {96, 64}, {64, 8}, {0, 64}},
     .side = 0,
     .area = 1500,
     .line = {{128, 0x1.7a1fp+3}, {-0.0, 0x1.7a1fp+3}},
     .counts = {.NumIntersez = 4, .NumPuntiParz = 8, .Trovato = true, .NumPunti = 6, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.7a1fp+3, .AngLinea = 100, .AreaParziale = 0x1.77000f27f2492p+10}},
    {.what = "a vertex in line with the base side is swept first, in vain: its distance has no direction",
     .parcel = {{0, 0}, {64, 0}, {128, 0}, {128, 64}, {0, 64}},
     .side = 0,
     .area = 2048,
     .line = {{128, 16}, {-0.0, 16}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 0},
     .measures = {.DistLinea = 16, .AngLinea = 100, .AreaParziale = 2048}},
    {.what = "a vertex in line with the base side is swept last: its probe leaves its crossing",
     .parcel = {{64, 0}, {128, 0}, {128, 64}, {0, 64}, {0, 0}},
     .side = 0,
     .area = 9000,
     .line = {{128, 0}, {0, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 8, .Trovato = false, .NumPunti = 5, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 8192}},
    {.what = "a repeated vertex: the base side is the one with length",
     .parcel = {{0, 0}, {0, 0}, {128, 0}, {128, 0}, {128, 64}, {0, 64}},
     .side = 1,
     .area = 2048,
     .line = {{128, 16}, {-0.0, 16}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = true, .NumPunti = 6, .IndiceInizio = 1},
     .measures = {.DistLinea = 16, .AngLinea = 100, .AreaParziale = 2048}},
    {.what = "base side given without length: the lines stay zero, nothing is met",
     .parcel = test::kFirstVertexTwice,
     .side = 0,
     .area = 2048,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 5, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 4096}},
    {.what = "the same side twice in the ring: the first one counts",
     .parcel = test::kSideTwice,
     .side = 0,
     .area = 1024,
     .line = {{64, 8}, {-0.0, 8}},
     .counts = {.NumIntersez = 4, .NumPuntiParz = 9, .Trovato = true, .NumPunti = 8, .IndiceInizio = 0},
     .measures = {.DistLinea = 8, .AngLinea = 100, .AreaParziale = 1024}},
    {.what = "a vertical base side",
     .parcel = test::kRectangle,
     .side = 1,
     .area = 2048,
     .line = {{96, 64}, {96, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 1},
     .measures = {.DistLinea = 32, .AngLinea = 200, .AreaParziale = 2048}},
    {.what = "a side twenty kilometres long",
     .parcel = {{0, 0}, {20000.5, 0.25}, {20000.25, 300.5}, {-10.5, 280.25}},
     .side = 0,
     .area = 1234567.5,
     .line = {{0x1.3881cb5f9p+14, 0x1.efc95adfffffep+5}, {-0x1.2801eb5ddde0bp+1, 0x1.edc94c0e7d2c9p+5}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.edc95b3593029p+5,
                  .AngLinea = 0x1.9000d09a33bc9p+6,
                  .AreaParziale = 0x1.2d68703da6afcp+20}},
    {.what = "field, clockwise, side 0",
     .parcel = reversed(test::kField),
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.c7ce832ea3d77p+8, 0x1.873685b33332ep+8}, {0x1.4265f69768ccbp+8, 0x1.6f2ae7c61560ap+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.c3e6fe4956ea6p+5,
                  .AngLinea = 0x1.375a3bfaa9f7ap+8,
                  .AreaParziale = 0x1.b587fec0a02adp+12}},
    {.what = "field, anticlockwise, side 0",
     .parcel = test::kField,
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.94ebffc5c28f2p+8, 0x1.331b068d1eb84p+8}, {0x1.61cfce88aac56p+8, 0x1.ae3a3e4ef4fc6p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.a984e74aacb4ep+5,
                  .AngLinea = 0x1.90c938cbe096ep+4,
                  .AreaParziale = 0x1.b587ff7066c88p+12}},
    {.what = "field, clockwise, side 1",
     .parcel = reversed(test::kField),
     .side = 1,
     .area = 7000.5,
     .line = {{0x1.d2cb97c23d71p+8, 0x1.3a7662e07ae15p+8}, {0x1.67ef88f5d85dp+8, 0x1.af54cf17dd3dp+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 1},
     .measures = {.DistLinea = 0x1.5d73873a0eb1fp+5,
                  .AngLinea = 0x1.ee4eba8d79925p+7,
                  .AreaParziale = 0x1.b58804cfe0bc2p+12}},
    {.what = "field, anticlockwise, side 1",
     .parcel = test::kField,
     .side = 1,
     .area = 7000.5,
     .line = {{0x1.e446c2f0f5c2bp+8, 0x1.68139a7ae1479p+8}, {0x1.4cd1526d6a617p+8, 0x1.56115c5dd152dp+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 1},
     .measures = {.DistLinea = 0x1.59d938ff33e2ep+5,
                  .AngLinea = 0x1.ae22fd3c1f896p+6,
                  .AreaParziale = 0x1.b587ec3d754b1p+12}},
    {.what = "field, clockwise, side 2",
     .parcel = reversed(test::kField),
     .side = 2,
     .area = 7000.5,
     .line = {{0x1.4cd151bc66665p+8, 0x1.56115e083d706p+8}, {0x1.e446c17fef0cdp+8, 0x1.68139c0e78cb9p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.59d946e1ebfd5p+5,
                  .AngLinea = 0x1.ae22fd3c1f88bp+6,
                  .AreaParziale = 0x1.b587fcc948ceap+12}},
    {.what = "field, anticlockwise, side 2",
     .parcel = test::kField,
     .side = 2,
     .area = 7000.5,
     .line = {{0x1.67ef88151eb83p+8, 0x1.af54ceef5c291p+8}, {0x1.d2cb96d625b59p+8, 0x1.3a7662c468786p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.5d738d437f718p+5,
                  .AngLinea = 0x1.ee4eba8d79924p+7,
                  .AreaParziale = 0x1.b5880c47dadf4p+12}},
    {.what = "field, clockwise, side 3",
     .parcel = reversed(test::kField),
     .side = 3,
     .area = 7000.5,
     .line = {{0x1.61cfcc847ae0ap+8, 0x1.ae3a3df1eb851p+8}, {0x1.94ebfdb50c479p+8, 0x1.331b064e414a4p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.a984d74760a72p+5,
                  .AngLinea = 0x1.90c938cbe0962p+4,
                  .AreaParziale = 0x1.b587eec3155d4p+12}},
    {.what = "field, anticlockwise, side 3",
     .parcel = test::kField,
     .side = 3,
     .area = 7000.5,
     .line = {{0x1.4265f600a3d6ep+8, 0x1.6f2ae93147ae1p+8}, {0x1.c7ce81fc34295p+8, 0x1.8736870256da3p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.c3e6f247e5062p+5,
                  .AngLinea = 0x1.375a3bfaa9f79p+8,
                  .AreaParziale = 0x1.b587f209b3e84p+12}},
    {.what = "mildly concave, after the dent",
     .parcel = test::kDented,
     .side = 0,
     .area = 5000.25,
     .line = {{0x1.ae16f6ap+6, 0x1.1c6cbf7ffffffp+5}, {-0x1.4b363b3c24fb8p+3, 0x1.8cbf2e02dacebp+5}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 5, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.7db5859a37422p+5,
                  .AngLinea = 0x1.71cf6a892c1dep+6,
                  .AreaParziale = 0x1.3883f0817c6c5p+12}},
    {.what = "mildly concave, from a side of the dent: what lies behind the base line is always counted",
     .parcel = test::kDented,
     .side = 2,
     .area = 3000.25,
     .line = {{-0x1.002c152edf8cap+3, 0x1.376f11fce8d23p+5}, {0x1.cf94b8129ba9bp+6, 0x1.d457bec5a4ed9p+5}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.64227afd0e9fep+3,
                  .AngLinea = 0x1.35fead089444p+8,
                  .AreaParziale = 0x1.7707eb801af49p+11}},
    {.what = "at the coordinates of a map",
     .parcel = test::kFieldOnMap,
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.e86effe1d1013p+18, 0x1.1bcc4beda4dffp+22}, {0x1.e84d98d6c8a91p+18, 0x1.1bcbec67fb7a6p+22}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0x1.c3af2838f4835p+5,
                  .AngLinea = 0x1.37427578394fcp+8,
                  .AreaParziale = 0x1.b587f96f9ap+12}},
    {.what = "across the origin: the last bit of the halving's midpoints",
     .parcel = {{-421.43, -73.15}, {76.8, -593.07}, {365.91, 89.62}, {2.72, 852.3}},
     .side = 3,
     .area = 502787,
     .line = {{-0x1.7e95cdc28f643p+1, -0x1.fdceb923d70a5p+8}, {0x1.3dec69fffce35p+8, 0x1.7cc73f64629edp+7}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.192949673e116p+9,
                  .AngLinea = 0x1.74a42d1038d58p+8,
                  .AreaParziale = 0x1.eb00cd4b7ae14p+18}},
    {.what = "against the ring: not a side",
     .parcel = test::kRectangle,
     .points = {{128, 0}, {0, 0}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "not neighbours",
     .parcel = test::kRectangle,
     .points = {{0, 0}, {128, 64}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "the last bit of a coordinate: not a vertex",
     .parcel = test::kRectangle,
     .points = {{0, 0}, {128, 0x0.0000000000001p-1022}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "-0.0 is the same coordinate as 0.0",
     .parcel = test::kRectangle,
     .points = {{-0.0, -0.0}, {128, 0}},
     .area = 2048,
     .line = {{128, 16}, {-0.0, 16}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 16, .AngLinea = 100, .AreaParziale = 2048}},
    {.what = "two points: there and back, no area to exceed",
     .parcel = {{0, 0}, {128, 0}},
     .side = 0,
     .area = 2048,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 3, .Trovato = false, .NumPunti = 2, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "two points, less than nothing requested: a halving on the base line",
     .parcel = {{0, 0}, {128, 0}},
     .side = 0,
     .area = -1,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 3, .Trovato = true, .NumPunti = 2, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "one point is no side",
     .parcel = {{3, 5}},
     .points = {{3, 5}, {3, 5}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 1, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "no points",
     .parcel = {},
     .points = {{0, 0}, {0, 0}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 0, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
};

TEST(CalcolaFrazionLineaPar, Table)
{
    for (const test::CutRow& row : kRows)
        test::check_cut(row, 0, 1);
}

TEST(CalcolaFrazionLineaPar, ASecondCallComesToTheSame)
{
    for (const test::CutRow& row : kRows)
        test::check_cut(row, 0, 2);
}

// The rectangle of 128 by 64, its request as a product: 64 * 48, met at the second halving.
TEST(CalcolaFrazionLineaPar, LeavesTheseMembers)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    CFrazArea cut(parcel, {0, 0}, {128, 0}, 0, 0, 64.0, 48.0);
    EXPECT_TRUE(test::run(cut).done);
    const test::State want = {{0, 0},
                              {128, 0},
                              0,
                              0,
                              64,
                              48,
                              {128, 24},
                              {-0.0, 24},
                              {64, 24},
                              {0, 0},
                              2,
                              5,
                              true,
                              4,
                              0,
                              24,
                              100,
                              3072,
                              3072,
                              0,
                              0,
                              {-0.0, 128, 0},
                              {-0.0, 128, -3072},
                              {0, 0, 0},
                              {{0, 0}, {128, 0}, {128, 64}, {0, 64}, {0, 0}},
                              {{0, 0}, {128, 0}, {128, 24}, {-0.0, 24}, {0, 0}},
                              {0, 1, 2, 3, 0}};
    EXPECT_STATE(test::state_of(cut), want);
}

TEST(CalcolaFrazionLineaPar, FillsTheIndicesFromTheBaseSide)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    CFrazArea cut(parcel, {128, 64}, {0, 64}, 0, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::VettIndici(cut), (Indices{2, 3, 0, 1, 2}));
    EXPECT_EQ(In::IndiceInizio(cut), 2);
}

TEST(CalcolaFrazionLineaPar, WhatIsNotASideLeavesTheResults)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    CFrazArea cut(parcel, {128, 0}, {0, 0}, 0, 1, 2048.0, 0.0);
    In::PuntoRis1(cut) = {1, 2};
    In::PuntoRis2(cut) = {3, 4};
    In::Trovato(cut) = true;
    const test::Answer answer = test::run(cut);
    EXPECT_FALSE(answer.done);
    EXPECT_POINT(answer.p1, ({1, 2}));
    EXPECT_POINT(answer.p2, ({3, 4}));
    EXPECT_FALSE(In::Trovato(cut));
    EXPECT_EQ(In::IndiceInizio(cut), -1);
    // The base line is taken all the same, and nothing is counted round the ring.
    EXPECT_LINE(In::RettaBase(cut), ({-0.0, -128, 0}));
    EXPECT_EQ(In::VettIndici(cut), (Indices{0, 0, 0, 0, 0}));
}

// Two points and a one-point ring: the index list has no entry for the vertex after the base side.
TEST(CalcolaFrazionLineaPar, OnePointIsFoundAndRefused)
{
    const CPoint3dVector parcel = test::parcel_of({{3, 5}});
    CFrazArea cut(parcel, {3, 5}, {3, 5}, 0, 1, 2048.0, 0.0);
    EXPECT_FALSE(test::run(cut).done);
    EXPECT_EQ(In::IndiceInizio(cut), 0);
    EXPECT_EQ(In::VettIndici(cut), (Indices{0, 0}));
    EXPECT_TRUE(In::VettParziale(cut).empty());
}

TEST(CalcolaFrazionLineaPar, TwoPointsAreSweptOnce)
{
    const CPoint3dVector parcel = test::parcel_of({{0, 0}, {128, 0}});
    CFrazArea cut(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::VettIndici(cut), (Indices{0, 1, 0}));
    EXPECT_EQ(In::VettParziale(cut).size(), 3U);
    EXPECT_FALSE(In::Trovato(cut));
}

// --- the halving by itself ---

// The square of side 2^24 on the x axis, ready for the halving.
constexpr double kSide = 0x1p24;

CFrazArea ready_square(const CPoint3dVector& parcel, double requested)
{
    CFrazArea f(parcel, {0, 0}, {kSide, 0}, 0, 1, requested, 0.0);
    In::NumPunti(f) = 4;
    In::AreaRichiesta(f) = requested;
    In::VettPoligono(f) = {{0, 0}, {kSide, 0}, {kSide, kSide}, {0, kSide}, {0, 0}};
    In::VettIndici(f) = {0, 1, 2, 3, 0};
    In::RettaBase(f) = {0, kSide, 0};
    return f;
}

struct HalvingRow {
    const char* what;
    double requested;  // in strips of the square a unit deep
    PL_PNT2D_record q;
    bool found;
    double depth;            // of the last line
    PL_PNT2D_record q_left;  // what is left in q
};

const HalvingRow kHalvingRows[] = {
    {"met at once: q stays", 0x1p23, {5, kSide}, true, 0x1p23, {5, kSide}},
    {"too much: q moves to the chord's second end", 0x1p22, {5, kSide}, true, 0x1p22, {-0.0, 0x1p23}},
    {"too little: the other bound moves", 0x1.8p23, {5, kSide}, true, 0x1.8p23, {5, kSide}},
    {"too little, then too much", 0x1.4p23, {5, kSide}, true, 0x1.4p23, {-0.0, 0x1.8p23}},
    {"nothing requested: thirty lines, the last one 2^-30 deep",
     0.0,
     {5, kSide},
     false,
     0x1p-6,
     {-0.0, 0x1p-6}},
    {"met by the thirtieth line", 0x1p-6, {5, kSide}, true, 0x1p-6, {-0.0, 0x1p-5}},
    {"the thirty-first would", 0x1p-7, {5, kSide}, false, 0x1p-6, {-0.0, 0x1p-6}},
    {"more than there is: thirty lines from below", 0x1p25, {5, kSide}, false, kSide - 0x1p-6, {5, kSide}},
    {"q on the base line: thirty lines there, each with the whole square",
     0x1p22,
     {5, 0},
     false,
     0.0,
     {0, 0}},
};

TEST(TrovatoPuntoMaxEtMedioConPuntoPrec, Table)
{
    const CPoint3dVector parcel;
    for (const HalvingRow& row : kHalvingRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = ready_square(parcel, row.requested * kSide);
        In::Trovato(f) = !row.found;
        In::AngLinea(f) = test::kUntouched;
        PL_PNT2D_record q = row.q;
        In::TrovatoPuntoMaxEtMedioConPuntoPrec(f, q);
        EXPECT_EQ(In::Trovato(f), row.found);
        EXPECT_BITS(In::DistLinea(f), row.depth);
        EXPECT_BITS(In::AngLinea(f), row.depth > 0.0 ? 90.0 * 1.1111111111111112 : 0.0);
        EXPECT_EQ(q.x, row.q_left.x);
        EXPECT_EQ(q.y, row.q_left.y);
        EXPECT_LINE(In::RettaMobile(f), ({0, kSide, -(row.depth * kSide + 0.0)}));
    }
}

TEST(TrovatoPuntoMaxEtMedioConPuntoPrec, StartsFromTheFootOnTheBaseLineWhateverTheTrialLineWas)
{
    // The base side is the top: a foot elsewhere, at the origin say, would not be on it.
    const CPoint3dVector parcel;
    CFrazArea f = ready_square(parcel, 0x1p23 * kSide);
    In::IndiceInizio(f) = 2;
    In::VettIndici(f) = {2, 3, 0, 1, 2};
    In::RettaBase(f) = {0, -kSide, kSide * kSide};
    In::RettaMobile(f) = {0, 0, 0};
    PL_PNT2D_record q = {5, 0};
    In::TrovatoPuntoMaxEtMedioConPuntoPrec(f, q);
    EXPECT_TRUE(In::Trovato(f));
    EXPECT_BITS(In::DistLinea(f), 0x1p23);
    EXPECT_LINE(In::RettaMobile(f), ({0, -kSide, 0x1p23 * kSide}));
}

TEST(TrovatoPuntoMaxEtMedioConPuntoPrec, NothingOutOfNothingIsNotTooLittle)
{
    // A ring of two points and a request of zero: no area is below it, so q is what moves, to an end that no
    // crossing has written.
    const CPoint3dVector parcel;
    CFrazArea f = ready_square(parcel, 0.0);
    In::NumPunti(f) = 2;
    In::VettPoligono(f) = {{0, 0}, {kSide, 0}, {0, 0}};
    In::VettIndici(f) = {0, 1, 0};
    In::PuntoRis2(f) = {9, 8};
    PL_PNT2D_record q = {1, 1};
    In::TrovatoPuntoMaxEtMedioConPuntoPrec(f, q);
    EXPECT_FALSE(In::Trovato(f));
    EXPECT_BITS(In::AreaParziale(f), 0.0);
    EXPECT_POINT(q, ({9, 8}));
}

TEST(TrovatoPuntoMaxEtMedioConPuntoPrec, ARequestThatIsNoNumberEnds)
{
    const CPoint3dVector parcel;
    CFrazArea f = ready_square(parcel, std::numeric_limits<double>::quiet_NaN());
    PL_PNT2D_record q = {5, kSide};
    In::TrovatoPuntoMaxEtMedioConPuntoPrec(f, q);
    EXPECT_FALSE(In::Trovato(f));
    // Not less than the request: every line counts as too much.
    EXPECT_BITS(In::DistLinea(f), 0x1p-6);
}

}  // namespace
