// The rays come from the platform's sine and cosine: what hangs on them is compared within a few of their
// rounding errors, counts and codes exactly. The wanted values come from the steps written down a second time
// in another language.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "cut_parcels.h"
#include "support/bits.h"
#include "support/cut_state.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::Points;
using test::reversed;
using test::Ring;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr int kNoVertex = -1;

struct VertexCounts {
    std::int32_t NumIntersez = 0;
    std::int32_t NumPuntiParz = 0;
    bool Trovato = false;
    std::int32_t IndiceInizio = -1;
};

struct VertexMeasures {
    double AngInizio = 0.0;
    double AngAmpiezza = 0.0;
    double AreaParziale = 0.0;
};

struct VertexRow {
    const char* what;
    Ring parcel;
    int vertex = kNoVertex;      // index of the vertex through which the line runs
    PL_PNT2D_record point = {};  // what is handed over where that is no vertex, bit by bit
    double area;                 // what is requested
    bool done = true;
    PL_PNT2D_record end = {0.0, 0.0};  // PuntoRis2; the line starts at the vertex
    VertexCounts counts = {};
    VertexMeasures measures = {};
    PL_IMP_LINE_2D_record ray = {0.0, 0.0, 0.0};  // RettaAux

    PL_PNT2D_record start() const
    {
        return vertex == kNoVertex ? point : parcel[static_cast<std::size_t>(vertex)];
    }
};

const VertexRow kRows[] = {
    {.what = "rectangle anticlockwise, corner 0",
     .parcel = test::kSite,
     .vertex = 0,
     .area = 1000,
     .end = {100, 0x1.3ffffdba1265cp+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.922182p+3, .AreaParziale = 0x1.f3fffc72bcbfp+9},
     .ray = {-0x1.91a55356c7d42p-3, 0x1.f60eabbd7acdep-1, 0}},
    {.what = "rectangle anticlockwise, corner 1",
     .parcel = test::kSite,
     .vertex = 1,
     .area = 1000,
     .end = {0x1.dffffa558b6d3p+5, 50},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 1},
     .measures = {.AngInizio = 100, .AngAmpiezza = 0x1.57a48fp+5, .AreaParziale = 0x1.f40008da56256p+9},
     .ray = {-0x1.8fce069adac4dp-1, -0x1.3fd80af26e6p-1, 0x1.3858f528fae9cp+6}},
    {.what = "rectangle anticlockwise, corner 2",
     .parcel = test::kSite,
     .vertex = 2,
     .area = 1000,
     .end = {-0.0, 0x1.e000023a79ef8p+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 2},
     .measures = {.AngInizio = 200, .AngAmpiezza = 0x1.922182p+3, .AreaParziale = 0x1.f3fffc84a179cp+9},
     .ray = {0x1.91a553649ap-3, -0x1.f60eabbcc9e8p-1, 0x1.d6adc330633p+4}},
    {.what = "rectangle anticlockwise, corner 3",
     .parcel = test::kSite,
     .vertex = 3,
     .area = 1000,
     .end = {0x1.400005aef8558p+5, -0.0},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 300, .AngAmpiezza = 0x1.57a48fp+5, .AreaParziale = 0x1.f40008e16405ap+9},
     .ray = {0x1.8fce0698a744p-1, 0x1.3fd80af52ec4ep-1, -0x1.f3c1911f1913ap+4}},
    {.what = "rectangle clockwise, corner 0",
     .parcel = reversed(test::kSite),
     .vertex = 0,
     .area = 1000,
     .end = {0x1.400005a5f0d31p+5, 50},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.c85b71p+5,
                  .AngAmpiezza = 0x1.57a48fp+5,
                  .AreaParziale = 0x1.f40008d34849dp+9},
     .ray = {-0x1.8fce069d0e472p-1, 0x1.3fd80aefadff6p-1, 0}},
    {.what = "rectangle clockwise, corner 1",
     .parcel = reversed(test::kSite),
     .vertex = 1,
     .area = 1000,
     .end = {100, 0x1.e0000245ed9d9p+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 1},
     .measures = {.AngInizio = 0x1.836ef3fp+8,
                  .AngAmpiezza = 0x1.922182p+3,
                  .AreaParziale = 0x1.f3fffc72bcb9cp+9},
     .ray = {0x1.91a55356c7dp-3, 0x1.f60eabbd7acdep-1, -0x1.883b762c07f0dp+5}},
    {.what = "rectangle clockwise, corner 2",
     .parcel = reversed(test::kSite),
     .vertex = 2,
     .area = 1000,
     .end = {0x1.dffffa5e92e5cp+5, 0},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 2},
     .measures = {.AngInizio = 0x1.010b6e2p+8,
                  .AngAmpiezza = 0x1.57a48fp+5,
                  .AreaParziale = 0x1.f40008cc3a79p+9},
     .ray = {0x1.8fce069f41c8p-1, -0x1.3fd80aecedap-1, -0x1.76d121cfbd2p+5}},
    {.what = "rectangle clockwise, corner 3",
     .parcel = reversed(test::kSite),
     .vertex = 3,
     .area = 1000,
     .end = {0, 0x1.3ffffdae9eb73p+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 0x1.76dde7ep+7,
                  .AngAmpiezza = 0x1.922182p+3,
                  .AreaParziale = 0x1.f3fffc60d7fe4p+9},
     .ray = {-0x1.91a55348f5adfp-3, -0x1.f60eabbe2bb8p-1, 0x1.39c92910ffefep+4}},
    {.what = "field, clockwise, corner 0",
     .parcel = reversed(test::kField),
     .vertex = 0,
     .area = 7000.5,
     .end = {0x1.fe31cbabace2ap+8, 0x1.4bbb15999efacp+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.76848f8bed379p+8,
                  .AngAmpiezza = 0x1.26ad6375e6p+5,
                  .AreaParziale = 0x1.b58803743de14p+12},
     .ray = {0x1.8f05a5bb41p-2, 0x1.d7875b3e4c8p-1, -0x1.f85104be569p+8}},
    {.what = "field, clockwise, corner 1",
     .parcel = reversed(test::kField),
     .vertex = 1,
     .area = 7000.5,
     .end = {0x1.9eaa1aba34cbep+8, 0x1.3443947449f1cp+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 1},
     .measures = {.AngInizio = 0x1.2de255ebe8406p+8,
                  .AngAmpiezza = 0x1.6a283ad6a4456p+5,
                  .AreaParziale = 0x1.b58812afa386p+12},
     .ray = {0x1.ffc699c6098p-1, 0x1.e4d36d80ep-6, -0x1.a79ad77052ep+8}},
    {.what = "field, clockwise, corner 2",
     .parcel = reversed(test::kField),
     .vertex = 2,
     .area = 7000.5,
     .end = {0x1.3d7c7e9d8dc01p+8, 0x1.7b0016ec9439bp+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 2},
     .measures = {.AngInizio = 0x1.6c678ba080b28p+7,
                  .AngAmpiezza = 0x1.954f97ec788f4p+4,
                  .AreaParziale = 0x1.b587ff062958cp+12},
     .ray = {-0x1.1a8fc7ecd4cp-2, -0x1.ec1f252ddd4p-1, 0x1.c3e4810bap+8}},
    {.what = "field, clockwise, corner 3",
     .parcel = reversed(test::kField),
     .vertex = 3,
     .area = 7000.5,
     .end = {0x1.98cac32d93c81p+8, 0x1.b82318f5fde82p+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 0x1.2a87e2758daacp+6,
                  .AngAmpiezza = 0x1.9354d77ad4f63p+5,
                  .AreaParziale = 0x1.b587f8d193316p+12},
     .ray = {-0x1.d7e3545a2e6p-1, 0x1.8d51cf4175cp-2, 0x1.9bfa8503cf2p+7}},
    {.what = "field, anticlockwise, corner 0",
     .parcel = test::kField,
     .vertex = 0,
     .area = 7000.5,
     .end = {0x1.cd3c7dc2a3d4fp+8, 0x1.39cd2d2f386c1p+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.450c938cbe097p+8,
                  .AngAmpiezza = 0x1.2d6347c348052p+5,
                  .AreaParziale = 0x1.b58809c35a75cp+12},
     .ray = {0x1.1af62f49728p-1, 0x1.aab457bf07p-1, -0x1.02372b37bb5p+9}},
    {.what = "field, anticlockwise, corner 1",
     .parcel = test::kField,
     .vertex = 1,
     .area = 7000.5,
     .end = {0x1.c450a5133923ep+8, 0x1.8b081dadd02dcp+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 1},
     .measures = {.AngInizio = 0x1.e22fd3c1f88cdp+2,
                  .AngAmpiezza = 0x1.3f7be2b2b7e76p+5,
                  .AreaParziale = 0x1.b587e9aa36e18p+12},
     .ray = {-0x1.5b5de41bb34p-1, 0x1.782382cf18ep-1, 0x1.0aa3e44609p+4}},
    {.what = "field, anticlockwise, corner 2",
     .parcel = test::kField,
     .vertex = 2,
     .area = 7000.5,
     .end = {0x1.36509c4c6ed42p+8, 0x1.a6633f89de3adp+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 2},
     .measures = {.AngInizio = 0x1.264eba8d79922p+7,
                  .AngAmpiezza = 0x1.8261b65f4bf83p+4,
                  .AreaParziale = 0x1.b58815985112cp+12},
     .ray = {-0x1.be1f0fba1cp-2, -0x1.ccdb0c805bcp-1, 0x1.01b1b350ee9p+9}},
    {.what = "field, anticlockwise, corner 3",
     .parcel = test::kField,
     .vertex = 3,
     .area = 7000.5,
     .end = {0x1.5d28592d3c3c3p+8, 0x1.2eb4a481f5736p+8},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 0x1.a6b477f553ef2p+7,
                  .AngAmpiezza = 0x1.ef15fd9928e6p+5,
                  .AreaParziale = 0x1.b5880f9318ap+12},
     .ray = {0x1.d36c7164b6p-1, -0x1.a1e542f278p-2, -0x1.8672d6ff3f4p+7}},
    {.what = "a vertex in the middle of a side: the fan is half the circle",
     .parcel = {{0, 0}, {50, 0}, {100, 0}, {100, 50}, {0, 50}},
     .vertex = 1,
     .area = 1000,
     .end = {100, 0x1.400005a832b5ap+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 1},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.57a48fp+5, .AreaParziale = 0x1.f40008d6cf3bdp+9},
     .ray = {-0x1.3fd80af10e30dp-1, 0x1.8fce069bf484p-1, 0x1.f3c19118a62c4p+4}},
    {.what = "the same clockwise",
     .parcel = {{0, 0}, {0, 50}, {100, 50}, {100, 0}, {50, 0}},
     .vertex = 4,
     .area = 1000,
     .end = {0, 0x1.400005a3aef25p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 4},
     .measures = {.AngInizio = 0x1.3a16dc4p+7,
                  .AngAmpiezza = 0x1.57a48fp+5,
                  .AreaParziale = 0x1.f40008cfc15aap+9},
     .ray = {-0x1.3fd80aee4dcdfp-1, -0x1.8fce069e2808p-1, 0x1.f3c191145991cp+4}},
    {.what = "a fan that starts before point 1, anticlockwise: wedges count from its start",
     .parcel = {{0, 0}, {50, 10}, {100, -20}, {100, 60}, {0, 60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.8ff77f586ba55p+6, 0x1.e000000000001p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.836ef3d9b576p+8,
                  .AngAmpiezza = 0x1.77c8e77c30243p+5,
                  .AreaParziale = 0x1.7707f89d1b151p+11},
     .ray = {-0x1.07701ae597456p-1, 0x1.b706d79b16569p-1, 0}},
    {.what = "a fan that starts before point 1, clockwise",
     .parcel = {{0, 0}, {50, -10}, {100, 20}, {100, -60}, {0, -60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.8ff77f64e6081p+6, -0x1.e000000000001p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.6d97ef36c4858p+8,
                  .AngAmpiezza = 0x1.77c8e77c30241p+5,
                  .AreaParziale = 0x1.7707f89168588p+11},
     .ray = {0x1.07701adf8c4b6p-1, 0x1.b706d79eb699ep-1, -0.0}},
    {.what = "a fan across the start of the circle, anticlockwise",
     .parcel = {{0, 0}, {50, -20}, {80, 10.5}, {40, 60}},
     .vertex = 0,
     .area = 900.5,
     .end = {0x1.2db418d6a876p+6, 0x1.766082f91ab21p+2},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.77c6b5cf0c3d2p+8,
                  .AngAmpiezza = 0x1.d26b640ddd966p+4,
                  .AreaParziale = 0x1.c23ff8a0f9ca4p+9},
     .ray = {-0x1.3cb6a8daede05p-4, 0x1.fe77962bbd8b4p-1, 0}},
    {.what = "a fan across the start of the circle, clockwise",
     .parcel = {{0, 0}, {40, 60}, {80, 10.5}, {50, -20}},
     .vertex = 0,
     .area = 900.5,
     .end = {0x1.c39478da151d7p+5, 0x1.3d2b773eec454p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.37d8318edd83cp+5,
                  .AngAmpiezza = 0x1.79605f46ed98ap+4,
                  .AreaParziale = 0x1.c2400d8a4040bp+9},
     .ray = {-0x1.2646582834393p-1, 0x1.a2fb8672a6aabp-1, 0}},
    {.what = "the inner corner of an L: three quarters of the circle, its line taken both ways",
     .parcel = test::kL,
     .vertex = 3,
     .area = 700,
     .end = {-0.0, 0x1.3fffc7578eb17p+3},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 100, .AngAmpiezza = 0x1.030899p+7, .AreaParziale = 0x1.5e0008da51b44p+9},
     .ray = {0x1.c9f29d39a31p-2, -0x1.c9f24c249462p-1, 0x1.1e373ce9b39p+3}},
    {.what = "the inner corner of an L, clockwise",
     .parcel = reversed(test::kL),
     .vertex = 3,
     .area = 700,
     .end = {0x1.400041be0c00fp+2, 50},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 3},
     .measures = {.AngInizio = 0x1.4984464p+8,
                  .AngAmpiezza = 0x1.19eee7p+6,
                  .AreaParziale = 0x1.5e00036c909f5p+9},
     .ray = {0x1.c9f262a1ace6p-1, 0x1.c9f2434545dcp-2, -0x1.ad5332aab1e5p+4}},
    {.what = "the outer corner of an L",
     .parcel = test::kL,
     .vertex = 0,
     .area = 700,
     .end = {0x1.8fffecb435b35p+5, 20},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.8394b4p+4, .AreaParziale = 0x1.5e000c0f5e6ffp+9},
     .ray = {-0x1.7c4de634ad906p-2, 0x1.db6148d32634cp-1, 0}},
    {.what = "four sides across the ray: the farthest crossing",
     .parcel = {{0, 0}, {30, -10}, {20, 10}, {50, 0}, {40, 15}, {80, 5}, {60, 60}},
     .vertex = 0,
     .area = 500,
     .end = {0x1.2ac6610139b1fp+6, 0x1.3979d4f2855afp+4},
     .counts = {.NumIntersez = 5, .NumPuntiParz = 9, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.7b8447fe46cbcp+8,
                  .AngAmpiezza = 0x1.26830b9e3c8e4p+5,
                  .AreaParziale = 0x1.f4000a2043126p+8},
     .ray = {-0x1.03cead1fbb47p-2, 0x1.ef3f16cc24003p-1, 0}},
    {.what = "a parcel that surrounds the vertex on three sides",
     .parcel = {{0, 0}, {60, 10}, {60, 40}, {-40, 50}, {-60, -30}, {-20, -30}},
     .vertex = 0,
     .area = 2000,
     .end = {0x1.85915b2d2dc93p+3, 0x1.6642c41ededbp+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.507028d3668fap+3,
                  .AngAmpiezza = 0x1.225a7fae6dc3ap+6,
                  .AreaParziale = 0x1.f3ffe19de1c5ep+10},
     .ray = {-0x1.ee11c27851a44p-1, 0x1.0c9f3ff0f081ap-2, 0}},
    {.what = "an edge of the fan that is not the last point, anticlockwise",
     .parcel = {{0, 0}, {100, 0}, {100, 60}, {-20, 80}, {10, 40}},
     .vertex = 0,
     .area = 4500.25,
     .end = {0x1.e6e74fe87c8ffp+5, 0x1.0a176401f59ebp+6},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.a69d1d23e47eep+5, .AreaParziale = 0x1.19440f670ab24p+12},
     .ray = {-0x1.79c075014353p-1, 0x1.599ca5c91fda7p-1, 0}},
    {.what = "an edge of the fan that is not the last point, clockwise",
     .parcel = {{0, 0}, {100, 0}, {100, -60}, {-20, -80}, {10, -40}},
     .vertex = 0,
     .area = 4500.25,
     .end = {0x1.e6e74fe87c901p+5, -0x1.0a176401f59eap+6},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.5b2c5c5b83702p+8,
                  .AngAmpiezza = 0x1.a69d1d23e47ecp+5,
                  .AreaParziale = 0x1.19440f670ab23p+12},
     .ray = {0x1.79c075014352fp-1, 0x1.599ca5c91fda8p-1, -0.0}},
    {.what = "a start of the fan that is passed again on the way, anticlockwise",
     .parcel = {{0, 0}, {50, 10}, {100, -20}, {110, -5}, {100, 60}, {0, 60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.948113ec615d6p+6, 0x1.a571fcff0e43p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.836ef3d9b576p+8,
                  .AngAmpiezza = 0x1.5920766416612p+5,
                  .AreaParziale = 0x1.77080af9a7dcep+11},
     .ray = {-0x1.d918f02034b2ap-2, 0x1.c6147f699e54dp-1, 0}},
    {.what = "a start of the fan that is passed again on the way, clockwise",
     .parcel = {{0, 0}, {50, -10}, {100, 20}, {110, 5}, {100, -60}, {0, -60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.948113ed63781p+6, -0x1.a571fcf1f2e7p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.716cfd59c7bdep+8,
                  .AngAmpiezza = 0x1.592076641661p+5,
                  .AreaParziale = 0x1.77080aee7883ep+11},
     .ray = {0x1.d918f013b4a89p-2, 0x1.c6147f6cdfd8ap-1, -0.0}},
    {.what = "a fan that starts half a gon before point 1, anticlockwise",
     .parcel = {{0, 0}, {100, 0}, {120, -0.75}, {100, 60}, {0, 60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.9d30be6458ab7p+6, 0x1.8fde482b32218p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.8f9a2464c602ep+8,
                  .AngAmpiezza = 0x1.d1699e3268a58p+4,
                  .AreaParziale = 0x1.7707f5e3ac096p+11},
     .ray = {-0x1.be0536644a98ep-2, 0x1.cce14db83f13dp-1, 0}},
    {.what = "a fan that starts half a gon before point 1, clockwise",
     .parcel = {{0, 0}, {100, 0}, {120, 0.75}, {100, -60}, {0, -60}},
     .vertex = 0,
     .area = 3000.25,
     .end = {0x1.9d30be6458ab8p+6, -0x1.8fde482b32216p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.734f41b81372dp+8,
                  .AngAmpiezza = 0x1.d1699e3268a56p+4,
                  .AreaParziale = 0x1.7707f5e3ac095p+11},
     .ray = {0x1.be0536644a98cp-2, 0x1.cce14db83f13ep-1, -0.0}},
    {.what = "a sliver, its fan a third of a gon, anticlockwise",
     .parcel = {{0, 0}, {100, 0}, {100, 0.5}},
     .vertex = 0,
     .area = 10,
     .end = {100, 0x1.99998419b93b8p-3},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.04c2476a2dd5p-3, .AreaParziale = 0x1.3fffef3418b68p+3},
     .ray = {-0x1.0624ad1093dc7p-9, 0x1.ffffbce435ba6p-1, 0}},
    {.what = "a sliver, clockwise",
     .parcel = {{0, 0}, {100, 0}, {100, -0.5}},
     .vertex = 0,
     .area = 10,
     .end = {100, -0x1.99998419b9255p-3},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.8fdf67b712ba4p+8,
                  .AngAmpiezza = 0x1.04c2476a2dc6ep-3,
                  .AreaParziale = 0x1.3fffef3418a52p+3},
     .ray = {0x1.0624ad1093ce4p-9, 0x1.ffffbce435ba6p-1, -0.0}},
    {.what = "a ring of no area, two triangles against each other, counts as anticlockwise",
     .parcel = {{0, 0}, {40, 0}, {0, 30}, {40, 30}},
     .vertex = 0,
     .area = 300,
     .end = {-0x1.a6d51fbb3572fp-28, 0x1.e00000013d1fep+4},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 6, .Trovato = false, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.8fffffffffff4p+6, .AreaParziale = 0x1.24183c98p-44},
     .ray = {-1, -0x1.c305772cece67p-33, 0}},
    {.what = "a parcel smaller than a unit",
     .parcel = {{0, 0}, {0.5, 0}, {0.5, 0.25}, {0, 0.25}},
     .vertex = 0,
     .area = 0.03125,
     .end = {0.5, 0x1.ffffecf15405p-4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.f310fp+3, .AreaParziale = 0x1.ffffecf15405p-6},
     .ray = {-0x1.f0b6732692a5ap-3, 0x1.f0b685a394715p-1, 0}},
    {.what = "a repeated vertex: the first of the two, which sees the other in direction 0",
     .parcel = {{10, 10}, {10, 10}, {60, 10}, {60, 40}, {10, 40}},
     .vertex = 0,
     .area = 500,
     .end = {0x1.dffffffffffffp+5, 0x1.e0000f6fd5c83p+4},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.8394b4p+4, .AreaParziale = 0x1.f400181ebe08cp+8},
     .ray = {-0x1.7c4de634ad9p-2, 0x1.db6148d32635p-1, -0x1.6488eb270348p+2}},
    {.what = "a repeated vertex elsewhere changes nothing",
     .parcel = {{0, 0}, {100, 0}, {100, 0}, {100, 50}, {100, 50}, {0, 50}},
     .vertex = 0,
     .area = 1000,
     .end = {100, 0x1.3ffffdba1265cp+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.922182p+3, .AreaParziale = 0x1.f3fffc72bcbfp+9},
     .ray = {-0x1.91a55356c7d42p-3, 0x1.f60eabbd7acdep-1, 0}},
    {.what = "points on both sides of the vertex in turn: a step of half the circle counts as forward",
     .parcel = {{0, 0}, {10, 0}, {-10, 0}, {-10, 10}, {-5, 20}},
     .vertex = 0,
     .area = 30,
     .end = {-10, 0x1.8000079af9ee1p+2},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.4b310fp+7,
                  .AngAmpiezza = 0x1.133bc4p+5,
                  .AreaParziale = 0x1.e0000981b8699p+4},
     .ray = {-0x1.076c00ad0db94p-1, -0x1.b7094dc3bb4e6p-1, 0}},
    {.what = "from left to right in turn, clockwise",
     .parcel = {{0, 0}, {-10, 0}, {10, 0}, {10, 10}, {5, 20}},
     .vertex = 0,
     .area = 30,
     .end = {0x1.3ffffffffffffp+3, 0x1.8000181bc9ac5p+2},
     .counts = {.NumIntersez = 2, .NumPuntiParz = 5, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 200,
                  .AngAmpiezza = 0x1.d4cef36762a87p+7,
                  .AreaParziale = 0x1.e0001e22bc176p+4},
     .ray = {-0x1.076c0900145f9p-1, 0x1.b70948c51d829p-1, 0}},
    {.what = "more than the parcel: forty-nine wedges, the ray comes up to the last side",
     .parcel = test::kSite,
     .vertex = 0,
     .area = 6000,
     .end = {-0x1.605c451b1914p-27, 50},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 5, .Trovato = false, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.8fffffffffff4p+6, .AreaParziale = 5000},
     .ray = {-1, -0x1.c305772cece67p-33, 0}},
    {.what = "the whole parcel: met within the relative 1e-6",
     .parcel = test::kSite,
     .vertex = 0,
     .area = 5000,
     .end = {0x1.3a2344288b9cfp-13, 0x1.9000000000001p+5},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.8fffcep+6, .AreaParziale = 0x1.387ff0a9472c1p+12},
     .ray = {-0x1.fffffffff621cp-1, 0x1.9218a929a0b6fp-19, 0}},
    {.what = "nothing requested: forty-nine wedges, the ray comes down to the first side",
     .parcel = test::kSite,
     .vertex = 0,
     .area = 0,
     .end = {100, 0x1.3a28c59e04627p-42},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = false, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.9p-43, .AreaParziale = 0x1.eadfb4c6e6d9dp-37},
     .ray = {-0x1.921fb5452455p-49, 1, 0}},
    {.what = "less than nothing: the first wedge passes",
     .parcel = test::kSite,
     .vertex = 0,
     .area = -1,
     .end = {0x1.8ffffffe9fa28p+5, 50},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 4, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 50, .AreaParziale = 0x1.d4c0000089a48p+11},
     .ray = {-0x1.6a09e66893332p-1, 0x1.6a09e66754467p-1, 0}},
    {.what = "not a vertex in the last bit of x",
     .parcel = test::kSite,
     .point = {0x1.8ffffffffffffp+6, 0},
     .area = 1000,
     .done = false,
     .end = {0, 0},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .IndiceInizio = -1},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0, .AreaParziale = 0},
     .ray = {0, 0, 0}},
    {.what = "not a vertex in the last bit of y",
     .parcel = test::kSite,
     .point = {100, 0x0.0000000000001p-1022},
     .area = 1000,
     .done = false,
     .end = {0, 0},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .IndiceInizio = -1},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0, .AreaParziale = 0},
     .ray = {0, 0, 0}},
    {.what = "-0.0 is the same coordinate as 0.0",
     .parcel = test::kSite,
     .point = {-0.0, -0.0},
     .area = 1000,
     .end = {100, 0x1.3ffffdba1265cp+4},
     .counts = {.NumIntersez = 1, .NumPuntiParz = 3, .Trovato = true, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0x1.922182p+3, .AreaParziale = 0x1.f3fffc72bcbfp+9},
     .ray = {-0x1.91a55356c7d42p-3, 0x1.f60eabbd7acdep-1, 0}},
    {.what = "two points: forty-nine times the same wedge of no width",
     .parcel = {{3, 5}, {60, 9}},
     .vertex = 0,
     .area = 1000,
     .end = {0, 0},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 2, .Trovato = false, .IndiceInizio = 0},
     .measures = {.AngInizio = 0x1.1d73d6a3d4827p+2, .AngAmpiezza = 0, .AreaParziale = 0},
     .ray = {-0x1.1ebbc2c9c92cp-4, 0x1.febe72f64efbp-1, -0x1.31c63ab87befp+2}},
    {.what = "one point",
     .parcel = {{3, 5}},
     .vertex = 0,
     .area = 1000,
     .end = {0, 0},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .IndiceInizio = 0},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0, .AreaParziale = 0},
     .ray = {-0.0, 1, -5}},
    {.what = "no points",
     .parcel = {},
     .point = {0, 0},
     .area = 1000,
     .done = false,
     .end = {0, 0},
     .counts = {.NumIntersez = 0, .NumPuntiParz = 0, .Trovato = false, .IndiceInizio = -1},
     .measures = {.AngInizio = 0, .AngAmpiezza = 0, .AreaParziale = 0},
     .ray = {0, 0, 0}},
};

void check(const VertexRow& row, const PL_PNT2D_record& second_point)
{
    SCOPED_TRACE(row.what);
    const CPoint3dVector parcel = test::parcel_of(row.parcel);
    CFrazArea cut(parcel, row.start(), second_point, 2, 1, row.area, test::kUntouched);
    const test::Answer answer = test::run(cut);

    EXPECT_EQ(answer.done, row.done);
    EXPECT_BITS(answer.z1, 0.0);
    EXPECT_BITS(answer.z2, 0.0);
    EXPECT_POINT(answer.p1, (row.done ? row.start() : PL_PNT2D_record{0.0, 0.0}));
    EXPECT_POINT(answer.p2, (In::PuntoRis2(cut)));
    EXPECT_POINT(In::PuntoRis1(cut), (answer.p1));
    EXPECT_POINT(In::PuntoVertice(cut), (row.start()));
    EXPECT_EQ(In::NumIntersez(cut), row.counts.NumIntersez);
    EXPECT_EQ(In::NumPuntiParz(cut), row.counts.NumPuntiParz);
    EXPECT_EQ(In::VettParziale(cut).size(), static_cast<std::size_t>(row.counts.NumPuntiParz));
    EXPECT_EQ(In::Trovato(cut), row.counts.Trovato);
    EXPECT_EQ(In::IndiceInizio(cut), row.counts.IndiceInizio);

    // An ulp of the sine moves a crossing at a few hundred by a hundredth of this.
    EXPECT_NEAR(In::PuntoRis2(cut).x, row.end.x, 1e-10);
    EXPECT_NEAR(In::PuntoRis2(cut).y, row.end.y, 1e-10);
    EXPECT_NEAR(In::AngInizio(cut), row.measures.AngInizio, 1e-12);
    EXPECT_NEAR(In::AngAmpiezza(cut), row.measures.AngAmpiezza, 1e-12);
    EXPECT_NEAR(In::AreaParziale(cut), row.measures.AreaParziale, 1e-8);
    // A vertex at a few hundred leaves the ray's second point on steps of 6e-14.
    EXPECT_NEAR(In::RettaAux(cut).a, row.ray.a, 2e-13);
    EXPECT_NEAR(In::RettaAux(cut).b, row.ray.b, 2e-13);
    EXPECT_NEAR(In::RettaAux(cut).c, row.ray.c, 2e-10);
}

TEST(CalcolaFrazionPuntoVer, Table)
{
    for (const VertexRow& row : kRows)
        check(row, {0.0, 0.0});
}

TEST(CalcolaFrazionPuntoVer, TheSecondPointHasNoEffect)
{
    for (const VertexRow& row : kRows)
        check(row, {kNaN, 7.0});
}

// On the square of 128 by 64 a request that no wedge meets lets the width tell how many were tried: the fan is
// 100 gon wide, and the search halves what is left of it each time.
struct WedgesRow {
    const char* what;
    double area;
    double width;
};

const WedgesRow kWedgesRows[] = {
    {"nothing: down to 100 * 2^-49", 0.0, 0x1.9p-43},
    // 100 - 100 * 2^-49 lies halfway between doubles; the one with the even last digit is meant.
    {"too much: up to 100 * (1 - 2^-49)", 1e9, 100.0 - 12.0 * 0x1p-46},
    {"not a number: never too little, as with nothing", kNaN, 0x1.9p-43},
};

TEST(CalcolaFrazionPuntoVer, FortyNineWedges)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    for (const WedgesRow& row : kWedgesRows) {
        SCOPED_TRACE(row.what);
        CFrazArea cut(parcel, {0, 0}, {0, 0}, 2, 1, row.area, 0.0);
        EXPECT_TRUE(test::run(cut).done);
        EXPECT_FALSE(In::Trovato(cut));
        EXPECT_BITS(In::AngAmpiezza(cut), row.width);
        EXPECT_BITS(In::AngInizio(cut), 0.0);
    }
}

// With sides along the axes the directions are exact, and the ray can be laid out again with the platform's own
// sine and cosine: to the last bit, the shortened factor and the order of the steps included.
TEST(CalcolaFrazionPuntoVer, TheRayIsLaidOutByTheShortenedFactor)
{
    const Points ring = {{1, 2}, {129, 2}, {129, 66}, {1, 66}};
    const CPoint3dVector parcel = test::parcel_of(ring);
    for (std::size_t corner = 0; corner < ring.size(); ++corner) {
        for (const double area : {400.0, 1000.0, 2500.0, 4500.0, 7000.0}) {
            SCOPED_TRACE(std::to_string(corner) + ", " + std::to_string(area));
            const PL_PNT2D_record v = ring[corner];
            CFrazArea cut(parcel, v, {0, 0}, 2, 1, area, 0.0);
            EXPECT_TRUE(test::run(cut).done);
            const double first_gon = 100.0 * static_cast<double>(corner);
            EXPECT_BITS(In::AngInizio(cut), first_gon);
            const double theta = (first_gon + In::AngAmpiezza(cut)) * 0.01570796327;
            const PL_PNT2D_record r = {v.x + std::cos(theta), v.y + std::sin(theta)};
            EXPECT_LINE(In::RettaAux(cut), ({-(r.y - v.y), r.x - v.x, v.x * r.y - v.y * r.x}));
        }
    }
}

TEST(CalcolaFrazionPuntoVer, NothingOutOfNothingIsNotTooLittle)
{
    // Sides too short to have lines: below 50 gon the wedge holds two points and no area, as requested.
    constexpr double kShort = 0x1p-26;
    const CPoint3dVector parcel = test::parcel_of({{0, 0}, {kShort, 0}, {kShort, kShort}, {0, kShort}});
    CFrazArea cut(parcel, {0, 0}, {0, 0}, 2, 1, 0.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_FALSE(In::Trovato(cut));
    EXPECT_BITS(In::AreaParziale(cut), 0.0);
    EXPECT_BITS(In::AngAmpiezza(cut), 0x1.9p-43);
}

TEST(CalcolaFrazionPuntoVer, WhatIsNotAVertexLeavesTheResults)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    CFrazArea cut(parcel, {1, 0}, {128, 0}, 2, 1, 2048.0, 0.0);
    In::PuntoRis1(cut) = {1, 2};
    In::PuntoRis2(cut) = {3, 4};
    In::Trovato(cut) = true;
    const test::Answer answer = test::run(cut);
    EXPECT_FALSE(answer.done);
    EXPECT_POINT(answer.p1, ({1, 2}));
    EXPECT_POINT(answer.p2, ({3, 4}));
    EXPECT_EQ(In::IndiceInizio(cut), -1);
    EXPECT_FALSE(In::Trovato(cut));
    EXPECT_POINT(In::PuntoVertice(cut), ({1, 0}));
    EXPECT_EQ(In::VettIndici(cut), (Indices{0, 0, 0, 0, 0}));
}

TEST(CalcolaFrazionPuntoVer, FillsTheIndicesFromTheVertexAndLeavesTheOthersModesMembers)
{
    const CPoint3dVector parcel = test::parcel_of(test::kRectangle);
    CFrazArea cut(parcel, {128, 64}, {0, 64}, 2, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::VettIndici(cut), (Indices{2, 3, 0, 1, 2}));
    EXPECT_POINT(In::PuntoLato1(cut), ({128, 64}));
    EXPECT_POINT(In::PuntoLato2(cut), ({0, 64}));
    EXPECT_POINT(In::PuntoMedio(cut), ({0.0, 0.0}));
    EXPECT_LINE(In::RettaBase(cut), ({0.0, 0.0, 0.0}));
    EXPECT_LINE(In::RettaMobile(cut), ({0.0, 0.0, 0.0}));
    EXPECT_BITS(In::DistLinea(cut), 0.0);
    EXPECT_BITS(In::AngLinea(cut), 0.0);
}

// --- one wedge ---

// The square of 4 from its first vertex; the ray's line given, the wedge too.
CFrazArea square_with_wedge(const CPoint3dVector& parcel, const PL_IMP_LINE_2D_record& ray, double start_gon,
                            double width_gon)
{
    CFrazArea f(parcel, {0, 0}, {0, 0}, 2, 1, 1.0, 0.0);
    In::NumPunti(f) = 4;
    In::PuntoVertice(f) = {0, 0};
    In::VettPoligono(f) = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    In::VettIndici(f) = {0, 1, 2, 3, 0};
    In::RettaAux(f) = ray;
    In::AngInizio(f) = start_gon;
    In::AngAmpiezza(f) = width_gon;
    return f;
}

constexpr PL_IMP_LINE_2D_record kHalfUp = {-1, 2, 0};  // through (4, 2), at 29.5 gon
constexpr PL_IMP_LINE_2D_record kNowhere = {0, 0, 0};

struct WedgeRow {
    const char* what;
    PL_IMP_LINE_2D_record ray;
    double start_gon;
    double width_gon;
    double area;
    Points partial;
};

// Seen from the vertex, the others lie at 0, 50 and 100 gon.
const WedgeRow kWedgeRows[] = {
    {"from the first side up to the ray", kHalfUp, 0, 29.5, 4.0, {{0, 0}, {4, 0}, {4, 2}}},
    {"point 1 on the wedge's start", kNowhere, 0, 10, 0.0, {{0, 0}, {4, 0}}},
    {"point 1 a rounding error before it: still on it", kNowhere, 1e-11, 10, 0.0, {{0, 0}, {4, 0}}},
    {"point 1 before it", kNowhere, 2e-10, 10, 0.0, {}},
    {"a wedge of no width at point 1", kNowhere, 0, 0, 0.0, {{0, 0}, {4, 0}}},
    {"a start below zero", kNowhere, -10, 20, 0.0, {{0, 0}, {4, 0}}},
    {"a start a turn earlier", kNowhere, 390, 20, 0.0, {{0, 0}, {4, 0}}},
    {"the last point on the wedge's end", kNowhere, 0, 100, 8.0 + 8.0, {{0, 0}, {4, 0}, {4, 4}, {0, 4}}},
    // 99.99999999 (0x1.8fffffff54339p+6) is the least double that 1.0000000001 takes to 100.
    {"on the end as it is widened",
     kNowhere,
     0,
     0x1.8fffffff54339p+6,
     16.0,
     {{0, 0}, {4, 0}, {4, 4}, {0, 4}}},
    {"an ulp outside that", kNowhere, 0, 0x1.8fffffff54338p+6, 8.0, {{0, 0}, {4, 0}, {4, 4}}},
    {"a wedge without point 1 is without the vertex too", kNowhere, 25, 100, 0.0, {{4, 4}, {0, 4}}},
    {"the crossing comes before the point that its side ends in", kHalfUp, 29.5, 30, 0.0, {{4, 2}, {4, 4}}},
    {"a crossing counts whatever the wedge", kHalfUp, 200, 10, 0.0, {{4, 2}}},
    {"a wedge of more than half a turn", kNowhere, 150, 320, 8.0, {{0, 0}, {4, 0}, {4, 4}}},
    {"a wedge that is no number holds no point", kHalfUp, kNaN, 10, 0.0, {{4, 2}}},
};

TEST(CalcAreaDaVertice, Table)
{
    const CPoint3dVector parcel;
    for (const WedgeRow& row : kWedgeRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = square_with_wedge(parcel, row.ray, row.start_gon, row.width_gon);
        EXPECT_BITS(In::CalcAreaDaVertice(f), row.area);
        ASSERT_EQ(In::VettParziale(f).size(), row.partial.size());
        for (std::size_t i = 0; i < row.partial.size(); ++i)
            EXPECT_POINT(In::VettParziale(f)[i], (row.partial[i]));
        EXPECT_EQ(In::NumPuntiParz(f), static_cast<std::int32_t>(row.partial.size()));
    }
}

TEST(CalcAreaDaVertice, StartsAnewAndWritesTheEnds)
{
    const CPoint3dVector parcel;
    CFrazArea f = square_with_wedge(parcel, kHalfUp, 0, 29.5);
    In::NumIntersez(f) = 5;
    In::NumPuntiParz(f) = 5;
    In::VettParziale(f) = {{9, 9}, {9, 9}};
    In::PuntoRis1(f) = {9, 9};
    In::PuntoRis2(f) = {99, 99};  // farther than any crossing
    In::AreaParziale(f) = test::kUntouched;
    EXPECT_BITS(In::CalcAreaDaVertice(f), 4.0);
    EXPECT_EQ(In::NumIntersez(f), 1);
    EXPECT_EQ(In::NumPuntiParz(f), 3);
    EXPECT_POINT(In::PuntoRis1(f), ({0, 0}));
    EXPECT_POINT(In::PuntoRis2(f), ({4, 2}));
    // The caller's business.
    EXPECT_BITS(In::AreaParziale(f), test::kUntouched);
}

TEST(CalcAreaDaVertice, ARayThatMeetsNothingLeavesTheSecondEnd)
{
    const CPoint3dVector parcel;
    CFrazArea f = square_with_wedge(parcel, kNowhere, 0, 29.5);
    In::PuntoRis2(f) = {9, 9};
    In::CalcAreaDaVertice(f);
    EXPECT_EQ(In::NumIntersez(f), 0);
    EXPECT_POINT(In::PuntoRis1(f), ({0, 0}));
    EXPECT_POINT(In::PuntoRis2(f), ({9, 9}));
}

TEST(CalcAreaDaVertice, TheSecondEndIsTheFarthestCrossingNotTheLast)
{
    // The diagonal: first through (4, 4), then back through (2.67, 2.67).
    const CPoint3dVector parcel;
    CFrazArea f = square_with_wedge(parcel, {-4, 4, 0}, 0, 50);
    In::VettPoligono(f) = {{0, 0}, {6, 2}, {2, 6}, {3, 1}, {0, 0}};
    In::CalcAreaDaVertice(f);
    EXPECT_EQ(In::NumIntersez(f), 2);
    EXPECT_POINT(In::PuntoRis2(f), ({4, 4}));
}

TEST(CalcAreaDaVertice, TheSidesAtTheVertexAreNotTested)
{
    // A line that crosses all but the top: of the bottom, the right and the left side only the right counts.
    const CPoint3dVector parcel;
    CFrazArea f = square_with_wedge(parcel, {1, 1, -3}, 0, 100);
    In::CalcAreaDaVertice(f);
    EXPECT_EQ(In::NumIntersez(f), 0);  // crosses the bottom and the left side only
    In::RettaAux(f) = {1, 1, -5};      // the right and the top one
    In::CalcAreaDaVertice(f);
    EXPECT_EQ(In::NumIntersez(f), 2);
    EXPECT_EQ(In::NumPuntiParz(f), 6);
}

TEST(CalcAreaDaVertice, ALineThroughACornerMeetsBothItsSides)
{
    const CPoint3dVector parcel;
    CFrazArea f = square_with_wedge(parcel, {-4, 4, 0}, 0, 50);
    EXPECT_BITS(In::CalcAreaDaVertice(f), 8.0);
    EXPECT_EQ(In::NumIntersez(f), 2);
    EXPECT_POINT(In::PuntoRis2(f), ({4, 4}));
}

}  // namespace
