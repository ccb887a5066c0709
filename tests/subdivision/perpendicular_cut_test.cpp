// Parcels with sides of powers of two are worked by hand: every step is exact. The others come from the steps
// written down a second time in another language, in doubles without fused operations.

#include <gtest/gtest.h>

#include "cut_parcels.h"
#include "cut_rows.h"
#include "support/bits.h"
#include "support/cut_state.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::kRectangle;
using test::Points;
using test::reversed;

const test::CutRow kRows[] = {
    {.what = "less than the half ahead: the line lies in it",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 2048,
     .line = {{96, -0.0}, {96, 64}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 32, .AngLinea = 0, .AreaParziale = 2048}},
    {.what = "more than the half ahead: the line lies in the half behind",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 6144,
     .line = {{32, 64}, {32, 0}},
     .base = test::CutEnds{{64, 0}, {64, 64}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 32, .AngLinea = 200, .AreaParziale = 2048, .AreaRichiesta = 2048}},
    {.what = "clockwise, from right to left: ahead is the left",
     .parcel = reversed(test::kRectangle),
     .side = 3,
     .area = 1024,
     .line = {{16, 0}, {16, 64}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 48, .AngLinea = 200, .AreaParziale = 3072, .AreaRichiesta = 3072}},
    {.what = "clockwise, more than the half",
     .parcel = reversed(test::kRectangle),
     .side = 3,
     .area = 5120,
     .line = {{80, 64}, {80, -0.0}},
     .base = test::CutEnds{{64, 0}, {64, 64}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 16, .AngLinea = 0, .AreaParziale = 1024, .AreaRichiesta = 1024}},
    {.what = "the closing side: ahead is down",
     .parcel = test::kRectangle,
     .side = 3,
     .area = 2048,
     .line = {{-0.0, 16}, {128, 16}},
     .base = test::CutEnds{{128, 32}, {0, 32}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 16, .AngLinea = 300, .AreaParziale = 2048}},
    {.what = "rectangle of 100 by 50 and 1000: at x = 80",
     .parcel = test::kSite,
     .side = 0,
     .area = 1000,
     .line = {{0x1.400005p+6, -0.0}, {0x1.400005p+6, 50}},
     .base = test::CutEnds{{50, 50}, {50, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures =
         {.DistLinea = 0x1.e00014p+4, .AngLinea = 0, .AreaParziale = 0x1.77000fap+10, .AreaRichiesta = 1500}},
    {.what = "rectangle of 100 by 50 and 4000: at x = 20",
     .parcel = test::kSite,
     .side = 0,
     .area = 4000,
     .line = {{0x1.3fffecp+4, 50}, {0x1.3fffecp+4, 0}},
     .base = test::CutEnds{{50, 0}, {50, 50}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.e00014p+4,
                  .AngLinea = 200,
                  .AreaParziale = 0x1.77000fap+10,
                  .AreaRichiesta = 1500}},
    {.what = "exactly the half: nothing is left to cut, thirty halvings for each vertex",
     .parcel = test::kStrip,
     .side = 0,
     .area = 67108864,
     .line = {{0x1.00000004p+20, -0.0}, {0x1.00000004p+20, 64}},
     .base = test::CutEnds{{1048576, 64}, {1048576, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1p-10, .AngLinea = 0, .AreaParziale = 0.0625, .AreaRichiesta = 0}},
    {.what = "an ulp more than the half: the half behind",
     .parcel = test::kStrip,
     .side = 0,
     .area = 0x1.0000000000001p+26,
     .line = {{0x1.fffffff8p+19, 64}, {0x1.fffffff8p+19, 0}},
     .base = test::CutEnds{{1048576, 0}, {1048576, 64}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1p-10, .AngLinea = 200, .AreaParziale = 0.0625, .AreaRichiesta = 0x1p-26}},
    {.what = "an ulp less than the half: the half ahead",
     .parcel = test::kStrip,
     .side = 0,
     .area = 0x1.fffffffffffffp+25,
     .line = {{0x1.00000004p+20, -0.0}, {0x1.00000004p+20, 64}},
     .base = test::CutEnds{{1048576, 64}, {1048576, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1p-10, .AngLinea = 0, .AreaParziale = 0.0625, .AreaRichiesta = 0x1p-27}},
    {.what = "more than the parcel: the half behind is not enough",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 9000,
     .line = {{-0.0, 64}, {0, 0}},
     .base = test::CutEnds{{64, 0}, {64, 64}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 64, .AngLinea = 200, .AreaParziale = 4096, .AreaRichiesta = 4904}},
    {.what = "nothing requested: all of the half ahead is the rest",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 0,
     .line = {{128, -0.0}, {0, 0}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 64, .AngLinea = 0, .AreaParziale = 4096, .AreaRichiesta = 4096}},
    {.what = "less than nothing: the rest is more than the half",
     .parcel = test::kRectangle,
     .side = 0,
     .area = -100,
     .line = {{128, -0.0}, {0, 0}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 7, .Trovato = false, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 64, .AngLinea = 0, .AreaParziale = 4096, .AreaRichiesta = 4196}},
    {.what = "the perpendicular crosses the side after the base: the half behind has a vertex more than the "
             "parcel",
     .parcel = test::kTriangle,
     .side = 0,
     .area = 3072,
     .line = {{0x1.12614p+4, 0x1.bb67bp+5}, {0x1.12614p+4, 0}},
     .base = test::CutEnds{{64, 0}, {64, 32}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.76cf6p+5,
                  .AngLinea = 200,
                  .AreaParziale = 0x1.0000028f8c8p+11,
                  .AreaRichiesta = 2048}},
    {.what = "the same triangle, within the half ahead",
     .parcel = test::kTriangle,
     .side = 0,
     .area = 512,
     .line = {{0x1.4afb1p+6, -0.0}, {0x1.4afb1p+6, 0x1.6a09ep+4}},
     .base = test::CutEnds{{64, 32}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 3, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.2bec4p+4, .AngLinea = 0, .AreaParziale = 0x1.0000090f3ep+9}},
    {.what = "the perpendicular crosses the side before the base",
     .parcel = {{0, 0}, {128, 0}, {128, 64}},
     .side = 0,
     .area = 3072.5,
     .line = {{0x1.ffdfffp+5, 0x1.ffdfffp+4}, {0x1.ffdfffp+5, 0}},
     .base = test::CutEnds{{64, 0}, {64, 32}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 3, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.0008p-6,
                  .AngLinea = 200,
                  .AreaParziale = 0x1.fffffefffcp-2,
                  .AreaRichiesta = 0.5}},
    {.what = "the perpendicular meets a vertex: the side that ends there is the first",
     .parcel = {{0, 0}, {128, 0}, {64, 64}},
     .side = 0,
     .area = 1024,
     .line = {{0x1.4afb1p+6, -0.0}, {0x1.4afb1p+6, 0x1.6a09ep+5}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 3, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.2bec4p+4, .AngLinea = 0, .AreaParziale = 0x1.0000090f3ep+10}},
    {.what = "a hair outside the side's end still counts: 0.0009 short of the perpendicular",
     .parcel = {{0, 0}, {128, 0}, {64.0009, 64}, {0, 128}},
     .side = 0,
     .area = 1024,
     .line = {{0x1.4afb600000001p+6, -0.0}, {0x1.4afb600000001p+6, 0x1.6a0a8da83dbcep+5}},
     .base = test::CutEnds{{64, 0x1.0000ebeed3b39p+6}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 3, .IndiceInizio = 2},
     .measures = {.DistLinea = 0x1.2bed8p+4,
                  .AngLinea = 0,
                  .AreaParziale = 0x1.0001d744e4968p+10,
                  .AreaRichiesta = 0x1.0001d7dda7672p+10}},
    {.what = "0.0011 short of the perpendicular: the next side",
     .parcel = {{0, 0}, {128, 0}, {64.0011, 64}, {0, 128}},
     .side = 0,
     .area = 1024,
     .line = {{0x1.4afb6fffffffcp+6, -0.0}, {0x1.4afb6fffffffcp+6, 0x1.6a0ab7cdd0447p+5}},
     .base = test::CutEnds{{64, 0x1.0001205a7b4d1p+6}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.2bedbfffffffp+4,
                  .AngLinea = 0,
                  .AreaParziale = 0x1.000238f49ef2ep+10,
                  .AreaRichiesta = 0x1.000240ba09ceap+10}},
    {.what = "several sides across: the first one in the ring's order, not the nearest",
     .parcel = {{0, 0}, {128, 0}, {128, 96}, {0, 96}, {0, 64}, {96, 64}, {96, 32}, {0, 32}},
     .side = 0,
     .area = 1024,
     .line = {{0x1.d5556p+6, -0.0}, {0x1.d5556p+6, 96}},
     .base = test::CutEnds{{64, 96}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures =
         {.DistLinea = 0x1.aaaacp+5, .AngLinea = 0, .AreaParziale = 0x1.40001p+12, .AreaRichiesta = 5120}},
    {.what = "the same side twice: the first one",
     .parcel = test::kSideTwice,
     .side = 0,
     .area = 512,
     .line = {{48, -0.0}, {48, 32}},
     .base = test::CutEnds{{32, 32}, {32, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 16, .AngLinea = 0, .AreaParziale = 512}},
    {.what = "field, clockwise, side 0",
     .parcel = reversed(test::kField),
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.911539ea3d714p+8, 0x1.b6bf63bae1479p+8}, {0x1.a8648506a9ef8p+8, 0x1.356bb209218e3p+8}},
     .base = test::CutEnds{{0x1.7a4e67e97ade9p+8, 0x1.2ff0e00bef777p+8},
                           {0x1.637d70a3d70a4p+8, 0x1.ae87ae147ae14p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.729ed9623ce9bp+5,
                  .AngLinea = 0x1.6b477f553ef1cp+3,
                  .AreaParziale = 0x1.787805b595fe8p+12,
                  .AreaRichiesta = 0x1.7877f38cec098p+12}},
    {.what = "field, anticlockwise, side 0",
     .parcel = test::kField,
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.548c05335c292p+8, 0x1.4372c47a66661p+8}, {0x1.d5021b380cee1p+8, 0x1.78c65f0f4da89p+8}},
     .base = test::CutEnds{{0x1.b8292e99e103p+8, 0x1.9853054b64252p+8},
                           {0x1.45228f5c28f5cp+8, 0x1.6893333333333p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.41968736252a9p+5,
                  .AngLinea = 0x1.450c938cbe099p+8,
                  .AreaParziale = 0x1.4b2d2fa95afaep+12,
                  .AreaRichiesta = 0x1.4b2d254221504p+12}},
    {.what = "field, clockwise, side 1",
     .parcel = reversed(test::kField),
     .side = 1,
     .area = 7000.5,
     .line = {{0x1.5de62aee431ebp+8, 0x1.2ceb6063690d9p+8}, {0x1.c48c473907921p+8, 0x1.8ac6e5981dd53p+8}},
     .base = test::CutEnds{{0x1.d1770a3d70a3dp+8, 0x1.7ca6666666666p+8},
                           {0x1.7e0f0b54f6dc8p+8, 0x1.306318da591aep+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 4},
     .measures = {.DistLinea = 0x1.324613ffac82dp+4,
                  .AngLinea = 0x1.264eba8d79921p+7,
                  .AreaParziale = 0x1.2e53efdd76ebcp+11,
                  .AreaRichiesta = 0x1.2e53f0e59b67cp+11}},
    {.what = "field, anticlockwise, side 1",
     .parcel = test::kField,
     .side = 1,
     .area = 7000.5,
     .line = {{0x1.94f661da4a878p+8, 0x1.b77265175861dp+8}, {0x1.a47a6859e051bp+8, 0x1.34f48ad0ce4c8p+8}},
     .base = test::CutEnds{{0x1.b31c28f5c28f6p+8, 0x1.36b1eb851eb85p+8},
                           {0x1.a502f1df30e26p+8, 0x1.ad446fc9322cep+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 4},
     .measures = {.DistLinea = 0x1.d7846761c57c9p+3,
                  .AngLinea = 0x1.9f117e9e0fc3fp+7,
                  .AreaParziale = 0x1.d76e2b8ce5216p+10,
                  .AreaRichiesta = 0x1.d76e41c9004bp+10}},
    {.what = "field, clockwise, side 2",
     .parcel = reversed(test::kField),
     .side = 2,
     .area = 7000.5,
     .line = {{0x1.82dd7edab8519p+8, 0x1.30f56679d70a1p+8}, {0x1.7396e8e138ea9p+8, 0x1.b16e876f5150fp+8}},
     .base = test::CutEnds{{0x1.a502f1df30e26p+8, 0x1.ad446fc9322cep+8},
                           {0x1.b31c28f5c28f6p+8, 0x1.36b1eb851eb85p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 4},
     .measures = {.DistLinea = 0x1.84ad4e012ff1dp+5,
                  .AngLinea = 0x1.9f117e9e0fc45p+7,
                  .AreaParziale = 0x1.89b893cf1cea8p+12,
                  .AreaRichiesta = 0x1.89b8a3154566p+12}},
    {.what = "field, anticlockwise, side 2",
     .parcel = test::kField,
     .side = 2,
     .area = 7000.5,
     .line = {{0x1.ae2b35dd1eb85p+8, 0x1.a340971eb8523p+8}, {0x1.5060876c65e4cp+8, 0x1.4d7e4e145ba53p+8}},
     .base = test::CutEnds{{0x1.7e0f0b54f6dc8p+8, 0x1.306318da591aep+8},
                           {0x1.d1770a3d70a3dp+8, 0x1.7ca6666666666p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = true, .NumPunti = 5, .IndiceInizio = 4},
     .measures = {.DistLinea = 0x1.a2738687cb225p+5,
                  .AngLinea = 0x1.264eba8d79922p+7,
                  .AreaParziale = 0x1.ab06f1d860e7ep+12,
                  .AreaRichiesta = 0x1.ab070b15d3064p+12}},
    {.what = "field, clockwise, side 3",
     .parcel = reversed(test::kField),
     .side = 3,
     .area = 7000.5,
     .line = {{0x1.bd356e9318eafp+8, 0x1.92cdbab85c74ep+8}, {0x1.47d4f4af0e8cap+8, 0x1.62141179ffb27p+8}},
     .base = test::CutEnds{{0x1.45228f5c28f5cp+8, 0x1.6893333333333p+8},
                           {0x1.b8292e99e103p+8, 0x1.9853054b64252p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.c22f29f723a28p+2,
                  .AngLinea = 0x1.450c938cbe0a3p+8,
                  .AreaParziale = 0x1.ba807dd20c04p+9,
                  .AreaRichiesta = 0x1.ba8094f8dfecp+9}},
    {.what = "field, anticlockwise, side 3",
     .parcel = test::kField,
     .side = 3,
     .area = 7000.5,
     .line = {{0x1.86b8185844baap+8, 0x1.316ab5838bff5p+8}, {0x1.6fc51ab374346p+8, 0x1.b0be4a5e73a09p+8}},
     .base = test::CutEnds{{0x1.637d70a3d70a4p+8, 0x1.ae87ae147ae14p+8},
                           {0x1.7a4e67e97ade9p+8, 0x1.2ff0e00bef777p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.8f4a33bdc4f78p+3,
                  .AngLinea = 0x1.6b477f553eebp+3,
                  .AreaParziale = 0x1.926b902b36f9cp+10,
                  .AreaRichiesta = 0x1.926b83a79adccp+10}},
    {.what = "field, more than the half",
     .parcel = reversed(test::kField),
     .side = 3,
     .area = 12000.25,
     .line = {{0x1.d803cebebb551p+8, 0x1.757c930578407p+8}, {0x1.56273d6d00aefp+8, 0x1.3f9428870e082p+8}},
     .base = test::CutEnds{{0x1.45228f5c28f5cp+8, 0x1.6893333333333p+8},
                           {0x1.b8292e99e103p+8, 0x1.9853054b64252p+8}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.631b183927bp+5,
                  .AngLinea = 0x1.450c938cbe09ap+8,
                  .AreaParziale = 0x1.6fcbfefa875e4p+12,
                  .AreaRichiesta = 0x1.6fcc129f1bfd8p+12}},
    {.what = "mildly concave",
     .parcel = test::kDented,
     .side = 0,
     .area = 5000.25,
     .line = {{0x1.42446bf03bc04p+5, 0x1.0d6e55f2d719p+6}, {0x1.fd8617cb82413p+4, -0x1.bde805a7afe35p+1}},
     .base = test::CutEnds{{45.625, -5.125}, {0x1.ac2d41799a4eap+5, 0x1.e9641fbb68c3bp+5}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.bc11cb39f6afdp+3,
                  .AngLinea = 0x1.80e7b544960efp+7,
                  .AreaParziale = 0x1.df24a3fdde648p+9,
                  .AreaRichiesta = 0x1.df248ef898eap+9}},
    {.what = "at the coordinates of a map",
     .parcel = test::kFieldOnMap,
     .side = 0,
     .area = 7000.5,
     .line = {{0x1.e861524b268abp+18, 0x1.1bcd0a3bd8119p+22}, {0x1.e867187a4639bp+18, 0x1.1bcb05564d651p+22}},
     .base = test::CutEnds{{0x1.e85b876e532d8p+18, 0x1.1bcaef5b724e8p+22}, {500055.5, 0x1.1bcce98p+22}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.74175f74a78b8p+5,
                  .AngLinea = 0x1.684eaf07df4dfp+3,
                  .AreaParziale = 0x1.79a2221418p+12,
                  .AreaRichiesta = 0x1.79a20adbp+12}},
    {.what = "across the origin: the last bit of the midpoints",
     .parcel = {{-472.31, -28.34}, {236.86, -615.83}, {432.69, 55.65}, {-11.1, 832.56}},
     .side = 0,
     .area = 287298,
     .line = {{0x1.19b19629286fep+8, 0x1.3ffcea12e660ep+8}, {-0x1.8895ce57e8f54p+7, -0x1.00ff83cdad835p+8}},
     .base = test::CutEnds{{-0x1.d6e6666666666p+6, -0x1.4215c28f5c29p+8},
                           {0x1.4fc3afb59223cp+8, 0x1.c2a92b28f5ca9p+7}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.9819f2d930e36p+6,
                  .AngLinea = 0x1.37e9d0166ce47p+7,
                  .AreaParziale = 0x1.22f42fc01eaf2p+16,
                  .AreaRichiesta = 0x1.22f42c85ebaa4p+16}},
    {.what = "across the origin: the last bit of other midpoints",
     .parcel = {{-540.49, -45.39}, {164.15, -285.63}, {514.82, 71.1}, {4.76, 847.81}},
     .side = 0,
     .area = 331595,
     .line = {{-0x1.4e395351eb849p+7, -0x1.596109d0a3d74p+7}, {0x1.e2996e4ac0cb3p+6, 0x1.4faae42a69c01p+9}},
     .base = test::CutEnds{{0x1.a4b55a06be3bdp+6, 0x1.5b72c67e600e9p+9},
                           {-0x1.78570a3d70a3ep+7, -0x1.4b051eb851eb8p+7}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 4, .IndiceInizio = 3},
     .measures = {.DistLinea = 0x1.63f9015bb3c2dp+4,
                  .AngLinea = 0x1.7b14f6b74c164p+8,
                  .AreaParziale = 0x1.3900208fea14ap+14,
                  .AreaRichiesta = 0x1.39000f6e6bdbp+14}},
    {.what = "against the ring: not a side",
     .parcel = test::kRectangle,
     .points = {{128, 0}, {0, 0}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "the last bit of a coordinate: not a vertex",
     .parcel = test::kRectangle,
     .points = {{0, 0}, {0x1.fffffffffffffp+6, 0}},
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "a parcel too small for its lines to have directions: the perpendicular meets nothing",
     .parcel = {{0, 0}, {0x1p-13, 0}, {0x1p-13, 0x1p-13}, {0, 0x1p-13}},
     .side = 0,
     .area = 0x1p-27,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 4, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "a base side without length: no direction, no perpendicular",
     .parcel = test::kFirstVertexTwice,
     .side = 0,
     .area = 2048,
     .done = false,
     .line = {{0, 0}, {0, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .NumPunti = 5, .IndiceInizio = 0},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "two points: the crossing is the midpoint itself, the base side of the half has no length",
     .parcel = {{0, 0}, {128, 0}},
     .side = 0,
     .area = 2048,
     .line = {{0, 0}, {0, 0}},
     .base = test::CutEnds{{64, 0}, {64, 0}},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 3, .Trovato = false, .NumPunti = 3, .IndiceInizio = 2},
     .measures = {.DistLinea = 0, .AngLinea = 0, .AreaParziale = 0}},
    {.what = "one point",
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

TEST(CalcolaFrazionLineaPerp, Table)
{
    for (const test::CutRow& row : kRows)
        test::check_cut(row, 1, 1);
}

// The first call puts the perpendicular in the place of the side.
const test::CutRow kSecondCallRows[] = {
    {.what = "a second call: the side is no longer a side of the parcel, the results stay",
     .parcel = test::kRectangle,
     .side = 0,
     .area = 2048,
     .done = false,
     .line = {{96, -0.0}, {96, 64}},
     .base = test::CutEnds{{64, 64}, {64, 0}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = false, .NumPunti = 4, .IndiceInizio = -1},
     .measures = {.DistLinea = 32, .AngLinea = 0, .AreaParziale = 2048}},
    {.what = "a second call where the first one's base side is in the ring too: another cut",
     .parcel = {{0, 0}, {128, 0}, {64, 64}, {64, 0}},
     .side = 0,
     .area = 512,
     .line = {{64, 0x1.12614p+3}, {0x1.ddb3d8p+6, 0x1.12614p+3}},
     .base = test::CutEnds{{96, 32}, {64, 32}},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .NumPunti = 5, .IndiceInizio = 4},
     .measures = {.DistLinea = 0x1.76cf6p+4,
                  .AngLinea = 300,
                  .AreaParziale = 0x1.0000028f8c8p+10,
                  .AreaRichiesta = 1024}},
};

TEST(CalcolaFrazionLineaPerp, SecondCalls)
{
    for (const test::CutRow& row : kSecondCallRows)
        test::check_cut(row, 1, 2);
}

TEST(CalcolaFrazionLineaPerp, LeavesTheHalfBehindAsTheWorkingPolygon)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea cut(parcel, {0, 0}, {128, 0}, 1, 0, 64.0, 96.0);
    EXPECT_TRUE(test::run(cut).done);
    test::State want = {{64, 0},
                        {64, 64},
                        1,
                        0,
                        64,
                        96,
                        {32, 64},
                        {32, 0},
                        {32, 32},
                        {0, 0},
                        2,
                        5,
                        true,
                        4,
                        3,
                        32,
                        200,
                        2048,
                        2048,
                        0,
                        0,
                        {-64, 0, 4096},
                        {-64, 0, 2048},
                        {0, 0, 0},
                        {{64, 64}, {0, 64}, {0, 0}, {64, 0}, {64, 64}},
                        {{64, 0}, {64, 64}, {32, 64}, {32, 0}, {64, 0}},
                        {3, 0, 1, 2, 3}};
    EXPECT_STATE(test::state_of(cut), want);

    // Again: the parcel is read anew, the request is its own again, and (64, 0)-(64, 64) is no side of it.
    EXPECT_FALSE(test::run(cut).done);
    want.Trovato = false;
    want.IndiceInizio = -1;
    want.AreaRichiesta = 6144;
    want.VettPoligono = {{0, 0}, {128, 0}, {128, 64}, {0, 64}, {0, 0}};
    EXPECT_STATE(test::state_of(cut), want);
}

TEST(CalcolaFrazionLineaPerp, TheIndicesGrowWithTheHalf)
{
    // The triangle's half behind has four points, and the list one entry more.
    const CPoint3dVector parcel = test::parcel_of(test::kTriangle);
    CFrazArea cut(parcel, {0, 0}, {128, 0}, 1, 1, 3072.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::NumPunti(cut), 4);
    EXPECT_EQ(In::VettIndici(cut), (Indices{3, 0, 1, 2, 3}));
    const Points want = {{64, 32}, {0, 64}, {0, 0}, {64, 0}, {64, 32}};
    ASSERT_EQ(In::VettPoligono(cut).size(), want.size());
    for (std::size_t i = 0; i < want.size(); ++i)
        EXPECT_POINT(In::VettPoligono(cut)[i], (want[i]));
}

TEST(CalcolaFrazionLineaPerp, TheIndicesDoNotShrinkWithTheHalf)
{
    // Six points ahead or behind of eight: nine entries stay, those beyond the seventh as Esegui made them.
    const Points ring = {{0, 0}, {128, 0}, {128, 16}, {128, 32}, {128, 64}, {0, 64}, {0, 32}, {0, 16}};
    const CPoint3dVector parcel = test::parcel_of(ring);
    CFrazArea cut(parcel, {0, 0}, {128, 0}, 1, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::NumPunti(cut), 6);
    EXPECT_EQ(In::VettIndici(cut), (Indices{5, 0, 1, 2, 3, 4, 5, 0, 0}));
    EXPECT_POINT(In::PuntoRis1(cut), ({96, -0.0}));
}

struct RefusedRow {
    const char* what;
    Points ring;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    std::int32_t index;
};

const RefusedRow kRefusedRows[] = {
    {"against the ring", kRectangle, {128, 0}, {0, 0}, -1},
    {"no points", {}, {0, 0}, {0, 0}, -1},
    {"one point, which is found", {{3, 5}}, {3, 5}, {3, 5}, 0},
    {"nothing that the perpendicular meets",
     {{0, 0}, {0x1p-13, 0}, {0x1p-13, 0x1p-13}, {0, 0x1p-13}},
     {0, 0},
     {0x1p-13, 0},
     0},
};

TEST(CalcolaFrazionLineaPerp, WhenItRefusesTheRequestIsAsItWas)
{
    for (const RefusedRow& row : kRefusedRows) {
        SCOPED_TRACE(row.what);
        const CPoint3dVector parcel = test::parcel_of(row.ring);
        CFrazArea cut(parcel, row.p1, row.p2, 1, 1, 3.0, 0.0);
        In::PuntoRis1(cut) = {1, 2};
        In::PuntoRis2(cut) = {3, 4};
        In::Trovato(cut) = true;
        EXPECT_FALSE(test::run(cut).done);
        EXPECT_POINT(In::PuntoRis1(cut), ({1, 2}));
        EXPECT_POINT(In::PuntoRis2(cut), ({3, 4}));
        EXPECT_POINT(In::PuntoLato1(cut), (row.p1));
        EXPECT_POINT(In::PuntoLato2(cut), (row.p2));
        EXPECT_BITS(In::AreaRichiesta(cut), 3.0);
        EXPECT_EQ(In::NumPunti(cut), static_cast<std::int32_t>(row.ring.size()));
        EXPECT_EQ(In::VettPoligono(cut).size(), row.ring.size() + 1);
        EXPECT_EQ(In::IndiceInizio(cut), row.index);
        EXPECT_FALSE(In::Trovato(cut));
        EXPECT_LINE(In::RettaBase(cut), ({0.0, 0.0, 0.0}));
    }
}

}  // namespace
