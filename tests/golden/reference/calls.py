"""Which name in a golden file stands for which call, with operands in the order of its arguments.

Outputs hold the sentinels before the call, so that a result that was never written shows.
"""

from typing import Callable, NamedTuple

from . import arcs, gons, kernel, lines, machine, subdivision, survey, wire

SENTINEL = float.fromhex("0x1.5p+77")
INT_SENTINEL = -77

_D = SENTINEL
_POINT = (_D, _D)
_LINE = (_D, _D, _D)
_ARC = ((_D, _D), _D, INT_SENTINEL, _D, _D)


class Call(NamedTuple):
    family: str
    operands: str
    results: str
    compute: Callable  # values of the operands -> tuple of values of the results
    at_least: int      # lines that the files must hold


FAMILIES = ("kernel", "lines", "arcs", "survey", "gons", "subdivision")
CALLS = {}


def _call(family, name, operands, results, compute, at_least=200):
    CALLS[name] = Call(family, operands, results, compute, at_least)


def _one(function):
    """For a function with a single result."""
    return lambda *operands: (function(*operands),)


# kernel ----------------------------------------------------------------------------------------------

_k = kernel
_call("kernel", "PlFunz_set_pnt_2d", "dd", "p", _one(_k.PlFunz_set_pnt_2d))
_call("kernel", "PlFunz_set_pnt_3d", "ddd", "q", _one(_k.PlFunz_set_pnt_3d))
_call("kernel", "PlFunz_set_line_2d", "dddd", "s", _one(_k.PlFunz_set_line_2d))
_call("kernel", "PlFunz_set_rect_2d", "dddd", "r", _one(_k.PlFunz_set_rect_2d))
_call("kernel", "PlFunz_set_rect_3d", "dddddd", "R", _one(_k.PlFunz_set_rect_3d))
_call("kernel", "PlFunz_set_arc_2d", "dddidd", "a", _one(_k.PlFunz_set_arc_2d))
_call("kernel", "PlFunz_set_arc_2d/null", "dddidd", "", lambda *operands: (), at_least=1)
_call("kernel", "PlFunz_inverse", "d", "d", _one(_k.PlFunz_inverse))
_call("kernel", "PlFunz_sumsqrdparms", "dd", "d", _one(_k.PlFunz_sumsqrdparms))
_call("kernel", "PlFunz_distance", "pp", "d", _one(_k.PlFunz_distance))
_call("kernel", "PlFunz_samepnt", "pp", "b", _one(_k.PlFunz_samepnt))
_call("kernel", "PlFunz_arctan_rad", "dd", "g", _one(_k.PlFunz_arctan_rad))
_call("kernel", "PlFunz_arctan_deg", "dd", "g", _one(_k.PlFunz_arctan_deg))
_call("kernel", "PlFunz_pseudo_angdist", "pp", "dd", _k.PlFunz_pseudo_angdist)
_call("kernel", "PlFunz_pntangledist", "ipdd", "p", _one(_k.PlFunz_pntangledist))
_call("kernel", "PlFunz_pntangledist/inplace", "ipdd", "p", _one(_k.PlFunz_pntangledist_inplace),
      at_least=40)
_call("kernel", "PlFunz_getidmatrix2d", "m", "m", lambda m: (_k.PlFunz_getidmatrix2d(),))
_call("kernel", "PlFunz_rotationmatrix2d", "dpm", "m", _one(_k.PlFunz_rotationmatrix2d))
_call("kernel", "PlFunz_translatematrix2d", "ddm", "m", _one(_k.PlFunz_translatematrix2d))
_call("kernel", "PlFunz_scalematrix2d", "ddpm", "m", _one(_k.PlFunz_scalematrix2d))
_call("kernel", "PlFunz_transformpnt2d", "mp", "p", _one(_k.PlFunz_transformpnt2d))
_call("kernel", "PlFunz_transformpnt2d/inplace", "mp", "p", _one(_k.PlFunz_transformpnt2d_inplace),
      at_least=40)
_call("kernel", "TrasfPt", "mdd", "dd", _k.TrasfPt)

# lines -----------------------------------------------------------------------------------------------

_l = lines
_call("lines", "PlFunz_lineeq_ile", "pp", "il", lambda p1, p2: _l.PlFunz_lineeq_ile(p1, p2, _LINE))
_call("lines", "PlFunz_normal_ile", "l", "il", _l.PlFunz_normal_ile)
_call("lines", "PlFunz_linepntperpend", "lp", "l", _one(_l.PlFunz_linepntperpend))
_call("lines", "PlFunz_linepntparallel", "pl", "l", _one(_l.PlFunz_linepntparallel))
_call("lines", "PlFunz_linepntparallel/inplace", "pl", "l", _one(_l.PlFunz_linepntparallel),
      at_least=40)
_call("lines", "PlFunz_ordinate_ile", "ld", "d", _one(_l.PlFunz_ordinate_ile))
_call("lines", "PlFunz_abscissa_ile", "ld", "d", _one(_l.PlFunz_abscissa_ile))
_call("lines", "PlFunz_intersect_ile", "ll", "bp", lambda l1, l2: _l.PlFunz_intersect_ile(l1, l2, _POINT))
_call("lines", "PlFunz_intersect_ils", "ls", "bp", lambda l1, s: _l.PlFunz_intersect_ils(l1, s, _POINT))
_call("lines", "PlFunz_intersect_ls", "ss", "bp", lambda s1, s2: _l.PlFunz_intersect_ls(s1, s2, _POINT))
_call("lines", "PlFunz_distpntln_ls", "ps", "d", _one(_l.PlFunz_distpntln_ls))
_call("lines", "PlFunz_pnts_in_line", "ppp", "b", _one(_l.PlFunz_pnts_in_line))

# arcs ------------------------------------------------------------------------------------------------

_a = arcs
_call("arcs", "PlFunz_arcangle", "ipp", "g", _one(_a.PlFunz_arcangle))
_call("arcs", "PlFunz_arc_3pnts", "ppp", "ia", lambda p, q, r: _a.PlFunz_arc_3pnts(p, q, r, _ARC))
_call("arcs", "PlFunz_arc_end_pnts", "a", "pp", _a.PlFunz_arc_end_pnts)
_call("arcs", "PlFunz_distpntarc", "ap", "d", _one(_a.PlFunz_distpntarc))
_call("arcs", "PlFunz_arc_rect", "app", "r", _one(_a.PlFunz_arc_rect))
_call("arcs", "PlFunz_intarcline_ls", "as", "bppi",
      lambda arc, seg: _a.PlFunz_intarcline_ls(arc, seg, _POINT, _POINT))
_call("arcs", "PlFunz_inpolygon", "pPi", "bi", _a.PlFunz_inpolygon)

# survey ----------------------------------------------------------------------------------------------

_s = survey
_call("survey", "TrovatoValNeiLimiti", "ddd", "b", _one(_s.TrovatoValNeiLimiti))
_call("survey", "TrovatoPuntoInSegmento", "ppp", "b", _one(_s.TrovatoPuntoInSegmento))
_call("survey", "CalcoloIntersezioneRette/ile", "ll", "bp",
      lambda l1, l2: _s.CalcoloIntersezioneRette_ile(l1, l2, _POINT))
_call("survey", "CalcoloIntersezioneRette/xy", "dddddddd", "bdd", _s.CalcoloIntersezioneRette_xy)
_call("survey", "CalcoloIntersezioneRetteExt", "dddddddd", "bdd",
      lambda *xy: _s.CalcoloIntersezioneRetteExt(*xy, _D, _D))
_call("survey", "CalcCoordYsuSegmento", "ddddd", "d", _one(_s.CalcCoordYsuSegmento))
_call("survey", "IntersezLineaInSegmOK", "ppl", "bp",
      lambda a, b, line: _s.IntersezLineaInSegmOK(a, b, line, _POINT))
_call("survey", "CimaSegm", "pppp", "bpppp", _s.CimaSegm)
_call("survey", "CalcPtAtDistSuSegm", "pppd", "p", _one(_s.CalcPtAtDistSuSegm))
_call("survey", "CalcPtAtDistSuLineaImp", "lpd", "p", _one(_s.CalcPtAtDistSuLineaImp))
_call("survey", "DistPtSuSegmDaPt", "pppp", "d", _one(_s.DistPtSuSegmDaPt))
_call("survey", "DistSegmDaPt", "ppp", "dp", lambda a, b, pt: _s.DistSegmDaPt(a, b, pt, _POINT))
_call("survey", "CalcDistPuntoDaRetta", "lp", "dg", _s.CalcDistPuntoDaRetta)
_call("survey", "IntersPerpDaPtInSegm", "ppp", "bp",
      lambda a, b, pt: _s.IntersPerpDaPtInSegm(a, b, pt, _POINT))
_call("survey", "CalcPtSquadro", "ppdd", "p", _one(_s.CalcPtSquadro))
_call("survey", "CalcPtAngDist", "ppdd", "p", _one(_s.CalcPtAngDist))
_call("survey", "CalcoloQuotaSuSegmento", "dddddddd", "d", _one(_s.CalcoloQuotaSuSegmento))
_call("survey", "CalcoloBdry", "dddddd", "R", _one(_s.CalcoloBdry))
_call("survey", "NumeroEstZero", "dd", "b", _one(_s.NumeroEstZero))
_call("survey", "StessoPunto", "ppd", "b", _one(_s.StessoPunto))
_call("survey", "AreaCalcolataSgn", "P", "d", _one(_s.AreaCalcolataSgn))
_call("survey", "AreaCalcolata", "P", "d", _one(_s.AreaCalcolata))
_call("survey", "PeriCalcolato", "P", "d", _one(_s.PeriCalcolato))

# gons ------------------------------------------------------------------------------------------------

_call("gons", "AngoloDaAsseRifer", "dd", "g", _one(gons.AngoloDaAsseRifer))
_call("gons", "LimiteAng0_400", "d", "g", _one(gons.LimiteAng0_400))
_call("gons", "LimiteAng200_200", "d", "g", _one(gons.LimiteAng200_200))
_call("gons", "CalcCoordEst", "dd", "d", _one(gons.CalcCoordEst))
_call("gons", "CalcCoordNord", "dd", "d", _one(gons.CalcCoordNord))

# subdivision -----------------------------------------------------------------------------------------


def _again(*request):
    """The same object asked twice."""
    division = subdivision.CFrazArea(*request)
    return division.Esegui() + division.Esegui()


def _copy(*request):
    """A copy made after the first answer, asked when the original is gone."""
    division = subdivision.CFrazArea(*request)
    first = division.Esegui()
    return first + division.copy().Esegui()


_call("subdivision", "CFrazArea", "Pppiidd", "bdddddd",
      lambda *request: subdivision.CFrazArea(*request).Esegui(), at_least=300)
_call("subdivision", "CFrazArea/again", "Pppiidd", "bddddddbdddddd", _again, at_least=60)
_call("subdivision", "CFrazArea/copy", "Pppiidd", "bddddddbdddddd", _copy, at_least=30)


def run(name, operands):
    """(leaves of the results, whether the platform's own functions were used)"""
    call = CALLS[name]
    before = machine.platform_calls()
    results = wire.flatten(call.results, call.compute(*operands))
    return results, machine.platform_calls() != before
