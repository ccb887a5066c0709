#include <algorithm>
#include <cmath>
#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "subdivision/parallel_trials.h"
#include "subdivision/search.h"

namespace plcalc {

namespace {

// Thirty halvings bring a strip to a billionth of its depth: what has not met the request by then will not.
constexpr int kMaxBisections = 30;

// The vertex after the two of the base side, where the sweep starts.
constexpr std::int32_t kFirstSwept = 2;

}  // namespace

/// The search for a line parallel to the base side, over the working values of its object.
class ParallelSearch {
public:
    /// A search that lays its own lines.
    explicit ParallelSearch(CFrazArea& cut) : ParallelSearch(cut, cut.RettaBase) {}

    /// A search over lines with the coefficients of `moving`.
    ParallelSearch(CFrazArea& cut, const PL_IMP_LINE_2D_record& moving)
        : cut_(cut),
          trials_(cut.VettPoligono, cut.VettIndici, cut.NumPunti, cut.RettaBase, moving.a, moving.b)
    {
        runs_.reserve(2 * static_cast<std::size_t>(std::max(cut.NumPunti, 1)));
    }

    // A line through each vertex in the ring's order, until one cuts off more than the request: the line
    // asked for lies between that vertex and the base side.
    void sweep()
    {
        std::int32_t v = kFirstSwept;
        do {
            lay(trials_.line_through_vertex(v));
            // A line of the sweep is a probe: its second end is not the result's.
            PL_PNT2D_record probe_end = {};
            measure(cut_.PuntoRis1, probe_end);
            if (cut_.AreaParziale > cut_.AreaRichiesta)
                bisect(trials_.point(v));
            ++v;
        } while (v < cut_.NumPunti && !cut_.Trovato);
    }

    // Halves the distance between the base line and q until the line there cuts off the request. The bound
    // on the wrong side moves to the chord's second end, as far from the base line as the midpoint was.
    PL_PNT2D_record bisect(PL_PNT2D_record q)
    {
        cut_.Trovato = false;
        PL_PNT2D_record f = trials_.foot(q);
        for (int bisections = 0; bisections < kMaxBisections && !cut_.Trovato;) {
            lay(trials_.line_through({(q.x + f.x) * 0.5, (q.y + f.y) * 0.5}));
            measure(cut_.PuntoRis1, cut_.PuntoRis2);
            if (meets_request(cut_.AreaParziale, cut_.AreaRichiesta)) {
                cut_.Trovato = true;
            } else {
                ++bisections;
                (cut_.AreaParziale < cut_.AreaRichiesta ? f : q) = cut_.PuntoRis2;
            }
        }
        return q;
    }

    // The bearing of a line is asked for only in doubt. The last one's is the object's.
    void note_bearing() { cut_.AngLinea = trials_.bearing(line_); }

    // Area between the base side and the line: once round the parcel from the base side, keeping the
    // vertices that are not beyond the line, and every crossing. r1 and r2 get the chord's ends.
    void measure(PL_PNT2D_record& r1, PL_PNT2D_record& r2)
    {
        start_partial();
        for (std::int32_t at = kFirstSwept; at <= cut_.NumPunti; ++at) {
            // Most of the ring is far from the line.
            const std::int32_t kept = trials_.kept_until(line_, at);
            append_vertices(at, kept - 1);
            at = trials_.beyond_until(line_, kept);
            if (at > cut_.NumPunti)
                break;

            PL_PNT2D_record crossing;
            if (trials_.meets_side(line_, at, crossing)) {
                append_crossing(crossing);
                cut_.TrovaLimitiSegmento(r1, r2, crossing);
            }
            if (!trials_.beyond(line_, at))
                append_vertices(at, at);
        }
        cut_.AreaParziale = std::fabs(trials_.signed_area(cut_.VettParziale, runs_));
    }

    void take(const TrialLine& line) { line_ = line; }

private:
    void lay(const TrialLine& line)
    {
        line_ = line;
        cut_.RettaMobile = {cut_.RettaBase.a, cut_.RettaBase.b, line.c};
        cut_.DistLinea = line.offset.dist;
    }

    void start_partial()
    {
        cut_.NumIntersez = 0;
        cut_.VettParziale.clear();
        cut_.NumPuntiParz = 0;
        runs_.clear();
        append_vertices(0, 1);
    }

    void append_crossing(const PL_PNT2D_record& p)
    {
        cut_.IncrementaVett(p);
        runs_.push_back({ParallelTrials::kCrossing, ParallelTrials::kCrossing});
    }

    void append_vertices(std::int32_t first, std::int32_t last)
    {
        if (last < first)
            return;
        const PL_PNT2D_record* points = &trials_.point(first);
        cut_.VettParziale.insert(cut_.VettParziale.end(), points, points + (last + 1 - first));
        cut_.NumPuntiParz += last + 1 - first;
        if (!runs_.empty() && runs_.back().last + 1 == first)
            runs_.back().last = last;
        else
            runs_.push_back({first, last});
    }

    CFrazArea& cut_;
    ParallelTrials trials_;
    TrialLine line_ = {0.0, {}, {}};         // the current one
    std::vector<ParallelTrials::Run> runs_;  // the partial polygon by positions
};

}  // namespace plcalc

bool CFrazArea::CalcolaFrazionLineaPar()
{
    Trovato = false;
    PlFunz_lineeq_ile(&PuntoLato1, &PuntoLato2, &RettaBase);
    IndiceInizio = plcalc::find_side(VettPoligono, NumPunti, PuntoLato1, PuntoLato2);
    if (IndiceInizio < 0)
        return false;
    for (std::int32_t j = 0; j <= NumPunti; ++j)
        VettIndici[static_cast<std::size_t>(j)] = plcalc::round_from(IndiceInizio, j, NumPunti);
    if (NumPunti < plcalc::kFirstSwept)
        return false;  // one point: there is no vertex to sweep to

    plcalc::ParallelSearch search(*this);
    search.sweep();
    search.note_bearing();
    return true;
}

void CFrazArea::TrovatoPuntoMaxEtMedioConPuntoPrec(PL_PNT2D_record& q)
{
    plcalc::ParallelSearch search(*this);
    q = search.bisect(q);
    search.note_bearing();
}

bool CFrazArea::CalcAreaDaPuntoPrimaDiVertice(PL_PNT2D_record& r1, PL_PNT2D_record& r2)
{
    plcalc::BaseOffset offset;
    offset.dist = DistLinea;
    offset.gon = AngLinea;
    offset.gon_known = true;
    plcalc::ParallelSearch search(*this, RettaMobile);
    search.take({RettaMobile.c, {}, offset});
    search.measure(r1, r2);
    return true;
}
