// Parcels with sides of powers of two are worked by hand: every step is exact. The others come from the steps
// written down a second time in another language, in doubles without fused operations.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "cut_rows.h"
#include "support/bits.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::Points;

const test::CutRow kRows[] = {
    {"rectangle: the line meets the request at the second halving",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 0.0}, 2048.0},
     true,
     {{128.0, 16.0}, {-0.0, 16.0}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 5, true, 4, 0},
     {16.0, 100.0, 2048.0, 2048.0}},
    {"the same rectangle clockwise",
     {{{0.0, 0.0}, {0.0, 64.0}, {128.0, 64.0}, {128.0, 0.0}}, {128.0, 0.0}, {0.0, 0.0}, 2048.0},
     true,
     {{0.0, 16.0}, {128.0, 16.0}, {128.0, 0.0}, {0.0, 0.0}},
     {2, 5, true, 4, 3},
     {16.0, 100.0, 2048.0, 2048.0}},
    {"the closing side, from the last vertex to the first",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 64.0}, {0.0, 0.0}, 2048.0},
     true,
     {{32.0, -0.0}, {32.0, 64.0}, {0.0, 64.0}, {0.0, 0.0}},
     {2, 5, true, 4, 3},
     {32.0, 0.0, 2048.0, 2048.0}},
    {"rectangle of 100 by 50 and 1000: within the relative 1e-6 of y = 10",
     {{{0.0, 0.0}, {100.0, 0.0}, {100.0, 50.0}, {0.0, 50.0}}, {0.0, 0.0}, {100.0, 0.0}, 1000.0},
     true,
     {{100.0, 0x1.3fffecp+3}, {-0.0, 0x1.3fffecp+3}, {0.0, 0.0}, {100.0, 0.0}},
     {2, 5, true, 4, 0},
     {0x1.3fffecp+3, 100.0, 0x1.f3ffe0cp+9, 1000.0}},
    {"a request that a vertex's line meets exactly waits for the next vertex",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 32.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 0.0}, 4096.0},
     true,
     {{128.0, 32.0}, {-0.0, 32.0}, {0.0, 0.0}, {128.0, 0.0}},
     {3, 7, true, 4, 0},
     {32.0, 100.0, 4096.0, 4096.0}},
    {"an ulp less is met from that vertex, after many halvings",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 32.0}, {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0.0},
      0x1.fffffffffffffp+11},
     true,
     {{-0.0, 0x1.ffffep+4}, {0x1.00001p+7, 0x1.ffffep+4}, {0.0, 0.0}, {128.0, 0.0}},
     {3, 6, true, 4, 0},
     {0x1.ffffep+4, 100.0, 0x1.ffffep+11, 0x1.fffffffffffffp+11}},
    {"the whole parcel: no vertex exceeds it, the first end is a probe's",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 0.0}, 8192.0},
     true,
     {{128.0, 64.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 7, false, 4, 0},
     {64.0, 100.0, 8192.0, 8192.0}},
    {"more than the parcel: the same",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 0.0}, 9000.0},
     true,
     {{128.0, 64.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 7, false, 4, 0},
     {64.0, 100.0, 8192.0, 9000.0}},
    {"an ulp less than the parcel: the relative 1e-6 is met before the edge",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0.0},
      0x1.fffffffffffffp+12},
     true,
     {{128.0, 0x1.ffffep+5}, {-0.0, 0x1.ffffep+5}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 5, true, 4, 0},
     {0x1.ffffep+5, 100.0, 0x1.ffffep+12, 0x1.fffffffffffffp+12}},
    {"nothing requested: thirty halvings for each vertex, the last one's stay",
     {{{0.0, 0.0}, {16777216.0, 0.0}, {16777216.0, 16777216.0}, {0.0, 8388608.0}},
      {0.0, 0.0},
      {16777216.0, 0.0},
      0.0},
     true,
     {{16777216.0, 0.0078125}, {-0.0, 0.0078125}, {0.0, 0.0}, {16777216.0, 0.0}},
     {2, 5, false, 4, 0},
     {0.0078125, 100.0, 131072.0, 0.0}},
    {"less than nothing: the first halving passes",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 0.0}, -1.0},
     true,
     {{128.0, 32.0}, {-0.0, 32.0}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 5, true, 4, 0},
     {32.0, 100.0, 4096.0, -1.0}},
    {"four crossings: the outermost two are the line",
     {{{0.0, 0.0},
       {128.0, 0.0},
       {128.0, 64.0},
       {96.0, 64.0},
       {96.0, 32.0},
       {32.0, 32.0},
       {32.0, 64.0},
       {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0.0},
      5120.0},
     true,
     {{128.0, 48.0}, {-0.0, 48.0}, {0.0, 0.0}, {128.0, 0.0}},
     {4, 9, true, 8, 0},
     {48.0, 100.0, 5120.0, 5120.0}},
    {"from the teeth's side the line crosses a tooth alone",
     {{{0.0, 0.0},
       {128.0, 0.0},
       {128.0, 64.0},
       {96.0, 64.0},
       {96.0, 32.0},
       {32.0, 32.0},
       {32.0, 64.0},
       {0.0, 64.0}},
      {128.0, 64.0},
      {96.0, 64.0},
      512.0},
     true,
     {{128.0, 56.0}, {-0.0, 56.0}, {128.0, 64.0}, {96.0, 64.0}},
     {4, 9, true, 8, 2},
     {8.0, 300.0, 512.0, 512.0}},
    {"the vertices are taken in the ring's order, not by distance",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 16.0}, {96.0, 64.0}, {64.0, 8.0}, {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0.0},
      1500.0},
     true,
     {{128.0, 0x1.7a1fp+3}, {-0.0, 0x1.7a1fp+3}, {0.0, 0.0}, {128.0, 0.0}},
     {4, 8, true, 6, 0},
     {0x1.7a1fp+3, 100.0, 0x1.77000f27f2492p+10, 1500.0}},
    {"a vertex in line with the base side is swept first, in vain: its distance has no direction",
     {{{0.0, 0.0}, {64.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {64.0, 0.0}, 2048.0},
     true,
     {{128.0, 16.0}, {-0.0, 16.0}, {0.0, 0.0}, {64.0, 0.0}},
     {2, 6, true, 5, 0},
     {16.0, 100.0, 2048.0, 2048.0}},
    {"a vertex in line with the base side is swept last: its probe leaves its crossing",
     {{{64.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}, {0.0, 0.0}}, {64.0, 0.0}, {128.0, 0.0}, 9000.0},
     true,
     {{128.0, 0.0}, {0.0, 0.0}, {64.0, 0.0}, {128.0, 0.0}},
     {2, 8, false, 5, 0},
     {0.0, 0.0, 8192.0, 9000.0}},
    {"a repeated vertex: the base side is the one with length",
     {{{0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0.0},
      2048.0},
     true,
     {{128.0, 16.0}, {-0.0, 16.0}, {0.0, 0.0}, {128.0, 0.0}},
     {2, 7, true, 6, 1},
     {16.0, 100.0, 2048.0, 2048.0}},
    {"base side given without length: the lines stay zero, nothing is met",
     {{{0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {0.0, 0.0}, 2048.0},
     true,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}},
     {0, 5, false, 5, 0},
     {0.0, 0.0, 4096.0, 2048.0}},
    {"the same side twice in the ring: the first one counts",
     {{{0.0, 0.0},
       {64.0, 0.0},
       {64.0, 32.0},
       {0.0, 32.0},
       {0.0, 0.0},
       {64.0, 0.0},
       {64.0, 64.0},
       {0.0, 64.0}},
      {0.0, 0.0},
      {64.0, 0.0},
      1024.0},
     true,
     {{64.0, 8.0}, {-0.0, 8.0}, {0.0, 0.0}, {64.0, 0.0}},
     {4, 9, true, 8, 0},
     {8.0, 100.0, 1024.0, 1024.0}},
    {"a vertical base side",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {128.0, 0.0}, {128.0, 64.0}, 2048.0},
     true,
     {{96.0, 64.0}, {96.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}},
     {2, 5, true, 4, 1},
     {32.0, 200.0, 2048.0, 2048.0}},
    {"a side twenty kilometres long",
     {{{0.0, 0.0}, {20000.5, 0.25}, {20000.25, 300.5}, {-10.5, 280.25}},
      {0.0, 0.0},
      {20000.5, 0.25},
      1234567.5},
     true,
     {{0x1.3881cb5f9p+14, 0x1.efc95adfffffep+5},
      {-0x1.2801eb5ddde0bp+1, 0x1.edc94c0e7d2c9p+5},
      {0.0, 0.0},
      {20000.5, 0.25}},
     {2, 5, true, 4, 0},
     {0x1.edc95b3593029p+5, 0x1.9000d09a33bc9p+6, 0x1.2d68703da6afcp+20, 1234567.5}},
    {"field, clockwise, side 0",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {410.75, 0x1.b87d70a3d70a4p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      {410.75, 0x1.b87d70a3d70a4p+8},
      7000.5},
     true,
     {{0x1.c7ce832ea3d77p+8, 0x1.873685b33332ep+8},
      {0x1.4265f69768ccbp+8, 0x1.6f2ae7c61560ap+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      {410.75, 0x1.b87d70a3d70a4p+8}},
     {2, 5, true, 4, 0},
     {0x1.c3e6fe4956ea6p+5, 0x1.375a3bfaa9f7ap+8, 0x1.b587fec0a02adp+12, 7000.5}},
    {"field, anticlockwise, side 0",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {410.75, 0x1.b87d70a3d70a4p+8}},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      7000.5},
     true,
     {{0x1.94ebffc5c28f2p+8, 0x1.331b068d1eb84p+8},
      {0x1.61cfce88aac56p+8, 0x1.ae3a3e4ef4fc6p+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
     {2, 5, true, 4, 0},
     {0x1.a984e74aacb4ep+5, 0x1.90c938cbe096ep+4, 0x1.b587ff7066c88p+12, 7000.5}},
    {"field, clockwise, side 1",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {410.75, 0x1.b87d70a3d70a4p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
      {410.75, 0x1.b87d70a3d70a4p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      7000.5},
     true,
     {{0x1.d2cb97c23d71p+8, 0x1.3a7662e07ae15p+8},
      {0x1.67ef88f5d85dp+8, 0x1.af54cf17dd3dp+8},
      {410.75, 0x1.b87d70a3d70a4p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8}},
     {2, 5, true, 4, 1},
     {0x1.5d73873a0eb1fp+5, 0x1.ee4eba8d79925p+7, 0x1.b58804cfe0bc2p+12, 7000.5}},
    {"field, anticlockwise, side 1",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {410.75, 0x1.b87d70a3d70a4p+8}},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      7000.5},
     true,
     {{0x1.e446c2f0f5c2bp+8, 0x1.68139a7ae1479p+8},
      {0x1.4cd1526d6a617p+8, 0x1.56115c5dd152dp+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8}},
     {2, 5, true, 4, 1},
     {0x1.59d938ff33e2ep+5, 0x1.ae22fd3c1f896p+6, 0x1.b587ec3d754b1p+12, 7000.5}},
    {"field, clockwise, side 2",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {410.75, 0x1.b87d70a3d70a4p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      7000.5},
     true,
     {{0x1.4cd151bc66665p+8, 0x1.56115e083d706p+8},
      {0x1.e446c17fef0cdp+8, 0x1.68139c0e78cb9p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
     {2, 5, true, 4, 2},
     {0x1.59d946e1ebfd5p+5, 0x1.ae22fd3c1f88bp+6, 0x1.b587fcc948ceap+12, 7000.5}},
    {"field, anticlockwise, side 2",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {410.75, 0x1.b87d70a3d70a4p+8}},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      {410.75, 0x1.b87d70a3d70a4p+8},
      7000.5},
     true,
     {{0x1.67ef88151eb83p+8, 0x1.af54ceef5c291p+8},
      {0x1.d2cb96d625b59p+8, 0x1.3a7662c468786p+8},
      {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
      {410.75, 0x1.b87d70a3d70a4p+8}},
     {2, 5, true, 4, 2},
     {0x1.5d738d437f718p+5, 0x1.ee4eba8d79924p+7, 0x1.b5880c47dadf4p+12, 7000.5}},
    {"field, clockwise, side 3",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {410.75, 0x1.b87d70a3d70a4p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8}},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      7000.5},
     true,
     {{0x1.61cfcc847ae0ap+8, 0x1.ae3a3df1eb851p+8},
      {0x1.94ebfdb50c479p+8, 0x1.331b064e414a4p+8},
      {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8}},
     {2, 5, true, 4, 3},
     {0x1.a984d74760a72p+5, 0x1.90c938cbe0962p+4, 0x1.b587eec3155d4p+12, 7000.5}},
    {"field, anticlockwise, side 3",
     {{{0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
       {0x1.5e0a3d70a3d71p+8, 0x1.2c947ae147ae1p+8},
       {0x1.04170a3d70a3dp+9, 0x1.40cf5c28f5c29p+8},
       {410.75, 0x1.b87d70a3d70a4p+8}},
      {410.75, 0x1.b87d70a3d70a4p+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8},
      7000.5},
     true,
     {{0x1.4265f600a3d6ep+8, 0x1.6f2ae93147ae1p+8},
      {0x1.c7ce81fc34295p+8, 0x1.8736870256da3p+8},
      {410.75, 0x1.b87d70a3d70a4p+8},
      {0x1.2c3ae147ae148p+8, 0x1.a491eb851eb85p+8}},
     {2, 5, true, 4, 3},
     {0x1.c3e6f247e5062p+5, 0x1.375a3bfaa9f79p+8, 0x1.b587f209b3e84p+12, 7000.5}},
    {"mildly concave, after the dent",
     {{{0.5, 0.25}, {90.75, -10.5}, {120.25, 70.5}, {55.5, 60.25}, {-20.5, 95.75}},
      {0.5, 0.25},
      {90.75, -10.5},
      5000.25},
     true,
     {{0x1.ae16f6ap+6, 0x1.1c6cbf7ffffffp+5},
      {-0x1.4b363b3c24fb8p+3, 0x1.8cbf2e02dacebp+5},
      {0.5, 0.25},
      {90.75, -10.5}},
     {2, 5, true, 5, 0},
     {0x1.7db5859a37422p+5, 0x1.71cf6a892c1dep+6, 0x1.3883f0817c6c5p+12, 5000.25}},
    {"mildly concave, from a side of the dent: what lies behind the base line is always counted",
     {{{0.5, 0.25}, {90.75, -10.5}, {120.25, 70.5}, {55.5, 60.25}, {-20.5, 95.75}},
      {120.25, 70.5},
      {55.5, 60.25},
      3000.25},
     true,
     {{-0x1.002c152edf8cap+3, 0x1.376f11fce8d23p+5},
      {0x1.cf94b8129ba9bp+6, 0x1.d457bec5a4ed9p+5},
      {120.25, 70.5},
      {55.5, 60.25}},
     {2, 6, true, 5, 2},
     {0x1.64227afd0e9fep+3, 0x1.35fead089444p+8, 0x1.7707eb801af49p+11, 3000.25}},
    {"at the coordinates of a map",
     {{{500000.25, 4649776.5}, {500110.75, 4649796.25}, {500220.5, 4649676.75}, {500050.0, 4649656.5}},
      {500000.25, 4649776.5},
      {500110.75, 4649796.25},
      7000.5},
     true,
     {{0x1.e86effe1d1013p+18, 0x1.1bcc4beda4dffp+22},
      {0x1.e84d98d6c8a91p+18, 0x1.1bcbec67fb7a6p+22},
      {500000.25, 4649776.5},
      {500110.75, 4649796.25}},
     {2, 5, true, 4, 0},
     {0x1.c3af2838f4835p+5, 0x1.37427578394fcp+8, 0x1.b587f96f9ap+12, 7000.5}},
    {"across the origin: the last bit of the halving's midpoints",
     {{{-0x1.a56e147ae147bp+8, -0x1.249999999999ap+6},
       {0x1.3333333333333p+6, -0x1.2888f5c28f5c3p+9},
       {0x1.6de8f5c28f5c3p+8, 0x1.667ae147ae148p+6},
       {0x1.5c28f5c28f5c3p+1, 0x1.aa26666666666p+9}},
      {0x1.5c28f5c28f5c3p+1, 0x1.aa26666666666p+9},
      {-0x1.a56e147ae147bp+8, -0x1.249999999999ap+6},
      502787.0},
     true,
     {{-0x1.7e95cdc28f643p+1, -0x1.fdceb923d70a5p+8},
      {0x1.3dec69fffce35p+8, 0x1.7cc73f64629edp+7},
      {0x1.5c28f5c28f5c3p+1, 0x1.aa26666666666p+9},
      {-0x1.a56e147ae147bp+8, -0x1.249999999999ap+6}},
     {2, 5, true, 4, 3},
     {0x1.192949673e116p+9, 0x1.74a42d1038d58p+8, 0x1.eb00cd4b7ae14p+18, 502787.0}},
    {"against the ring: not a side",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {128.0, 0.0}, {0.0, 0.0}, 2048.0},
     false,
     {{0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}, {0.0, 0.0}},
     {0, 0, false, 4, -1},
     {0.0, 0.0, 0.0, 2048.0}},
    {"not neighbours",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {0.0, 0.0}, {128.0, 64.0}, 2048.0},
     false,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 64.0}},
     {0, 0, false, 4, -1},
     {0.0, 0.0, 0.0, 2048.0}},
    {"the last bit of a coordinate: not a vertex",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}},
      {0.0, 0.0},
      {128.0, 0x0.0000000000001p-1022},
      2048.0},
     false,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 0x0.0000000000001p-1022}},
     {0, 0, false, 4, -1},
     {0.0, 0.0, 0.0, 2048.0}},
    {"-0.0 is the same coordinate as 0.0",
     {{{0.0, 0.0}, {128.0, 0.0}, {128.0, 64.0}, {0.0, 64.0}}, {-0.0, -0.0}, {128.0, 0.0}, 2048.0},
     true,
     {{128.0, 16.0}, {-0.0, 16.0}, {-0.0, -0.0}, {128.0, 0.0}},
     {2, 5, true, 4, 0},
     {16.0, 100.0, 2048.0, 2048.0}},
    {"two points: there and back, no area to exceed",
     {{{0.0, 0.0}, {128.0, 0.0}}, {0.0, 0.0}, {128.0, 0.0}, 2048.0},
     true,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}},
     {0, 3, false, 2, 0},
     {0.0, 0.0, 0.0, 2048.0}},
    {"two points, less than nothing requested: a halving on the base line",
     {{{0.0, 0.0}, {128.0, 0.0}}, {0.0, 0.0}, {128.0, 0.0}, -1.0},
     true,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {128.0, 0.0}},
     {0, 3, true, 2, 0},
     {0.0, 0.0, 0.0, -1.0}},
    {"one point is no side",
     {{{3.0, 5.0}}, {3.0, 5.0}, {3.0, 5.0}, 2048.0},
     false,
     {{0.0, 0.0}, {0.0, 0.0}, {3.0, 5.0}, {3.0, 5.0}},
     {0, 0, false, 1, 0},
     {0.0, 0.0, 0.0, 2048.0}},
    {"no points",
     {{}, {0.0, 0.0}, {0.0, 0.0}, 2048.0},
     false,
     {{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}},
     {0, 0, false, 0, -1},
     {0.0, 0.0, 0.0, 2048.0}},
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
    const CPoint3dVector parcel = test::parcel_of({{0, 0}, {128, 0}, {128, 64}, {0, 64}});
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
    const CPoint3dVector parcel = test::parcel_of({{0, 0}, {128, 0}, {128, 64}, {0, 64}});
    CFrazArea cut(parcel, {128, 64}, {0, 64}, 0, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(cut).done);
    EXPECT_EQ(In::VettIndici(cut), (Indices{2, 3, 0, 1, 2}));
    EXPECT_EQ(In::IndiceInizio(cut), 2);
}

TEST(CalcolaFrazionLineaPar, WhatIsNotASideLeavesTheResults)
{
    const CPoint3dVector parcel = test::parcel_of({{0, 0}, {128, 0}, {128, 64}, {0, 64}});
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
