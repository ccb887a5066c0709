#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "subdivision/hopeless_lines.h"
#include "subdivision/parallel_trials.h"
#include "subdivision/partial_polygon.h"
#include "subdivision/search.h"

namespace plcalc {

namespace {

// Thirty halvings reduce a strip to a billionth of its depth. A search that has not met the request by then
// will not meet it.
constexpr int kMaxBisections = 30;

// The vertex after the two of the base side, where the sweep starts.
constexpr std::int32_t kFirstSwept = 2;

// From this many crossings on, both ends of the chord and its midpoint are written.
constexpr std::size_t kWholeChord = 2;

}  // namespace

/// The search for a line parallel to the base side, over the working values of its object.
///
/// A trial keeps what the next one needs. What is only visible in the object is written when the search is
/// over.
class ParallelSearch {
public:
    /// A search that lays its own lines.
    explicit ParallelSearch(CFrazArea& cut) : ParallelSearch(cut, cut.RettaBase) {}

    /// A search over lines with the coefficients of `moving`.
    ParallelSearch(CFrazArea& cut, const PL_IMP_LINE_2D_record& moving)
        : cut_(cut),
          trials_(cut.VettPoligono, cut.VettIndici, cut.NumPunti, cut.RettaBase, moving.a, moving.b),
          piece_(trials_.points()), hopeless_(trials_, piece_, cut.AreaRichiesta)
    {
        crossings_before_.reserve(PartialPolygon::kUsualSinglePoints);
    }

    // Tries a line through each vertex in the ring's order, until one cuts off more than the request: the
    // wanted line lies between that vertex and the base side.
    void sweep()
    {
        std::int32_t v = kFirstSwept;
        do {
            line_ = trials_.line_through_vertex(v);
            cut_off();
            probe();
            if (piece_.exceeds(cut_.AreaRichiesta))
                bisect_from(v);
            ++v;
        } while (v < cut_.NumPunti && !cut_.Trovato);
    }

    // Bisects between the base line and q.
    PL_PNT2D_record bisect(const PL_PNT2D_record& q)
    {
        Bisection between = {q, trials_.foot(q)};
        halve(between, kMaxBisections);
        return between.q;
    }

    // Area between the base side and the line, with the object's second end or another.
    void measure(const TrialLine& line, PL_PNT2D_record& r1, PL_PNT2D_record& r2)
    {
        line_ = line;
        cut_off();
        cut_.NumIntersez = 0;
        for (const PL_PNT2D_record& crossing : piece_.single_points())
            cut_.TrovaLimitiSegmento(r1, r2, crossing);
        show_piece();
    }

    // Writes the last line, and what it cuts off, into the object.
    void show()
    {
        if (bisection_open_ && probe_open_)
            finish_bisection_before_line();
        else if (bisection_open_)
            finish_bisection();
        settle_probe();
        settle_midpoint();
        cut_.RettaMobile = {cut_.RettaBase.a, cut_.RettaBase.b, line_.c};
        cut_.DistLinea = trials_.distance(line_);
        cut_.AngLinea = trials_.bearing(line_);
        show_piece();
    }

private:
    // The line lies between the parallels through two points.
    struct Bisection {
        PL_PNT2D_record q;
        PL_PNT2D_record f;
        int lines = 0;  // tried so far
    };

    // Halves the distance between the two until the line there cuts off the request. The bound on the wrong side
    // moves to the chord's second end, as far from the base line as the midpoint was.
    void halve(Bisection& between, int most_lines)
    {
        using Verdict = PartialPolygon::Verdict;
        cut_.Trovato = false;
        while (between.lines < most_lines && !cut_.Trovato) {
            const PL_PNT2D_record& q = between.q;
            const PL_PNT2D_record& f = between.f;
            line_ = trials_.line_through({(q.x + f.x) * 0.5, (q.y + f.y) * 0.5});
            cut_off();
            bisection_open_ = false;
            take_chord(piece_.single_points(), cut_.PuntoRis2);
            const Verdict verdict = piece_.against(cut_.AreaRichiesta);
            if (verdict == Verdict::kMeets) {
                cut_.Trovato = true;
            } else {
                ++between.lines;
                (verdict == Verdict::kBelow ? between.f : between.q) = cut_.PuntoRis2;
            }
        }
    }

    // A bisection that cannot succeed leaves only the chord of its last line. It is finished when that is seen.
    void bisect_from(std::int32_t v)
    {
        Bisection between = {trials_.point(v), trials_.foot(trials_.point(v))};
        halve(between, 1);
        if (cut_.Trovato)
            return;
        if (piece_.single_points().size() >= kWholeChord && hopeless_.up_to(v)) {
            open_ = between;
            bisection_open_ = true;
            return;
        }
        halve(between, kMaxBisections);
        if (!cut_.Trovato)
            hopeless_.note_futile(kMaxBisections, piece_.single_points().size());
    }

    void finish_bisection()
    {
        bisection_open_ = false;
        halve(open_, kMaxBisections);
    }

    // As it would have been before the current line was laid.
    void finish_bisection_before_line()
    {
        const TrialLine line = line_;
        const bool probe_open = probe_open_;
        probe_open_ = false;
        finish_bisection();
        line_ = line;
        cut_parcel();
        probe_open_ = probe_open;
    }

    // Once round the parcel from the base side, keeping the vertices that are not beyond the line, and every
    // crossing.
    void cut_parcel()
    {
        piece_.clear(crossings_before_);
        piece_.append_vertices(0, 1);
        for (std::int32_t at = kFirstSwept; at <= cut_.NumPunti; ++at) {
            // Most of the ring is far from the line.
            const std::int32_t kept = trials_.kept_until(line_, at);
            piece_.append_vertices(at, kept - 1);
            at = trials_.beyond_until(line_, kept);
            if (at > cut_.NumPunti)
                break;

            PL_PNT2D_record crossing;
            if (trials_.meets_side(line_, at, crossing))
                piece_.append_point(crossing);
            if (!trials_.beyond(line_, at))
                piece_.append_vertices(at, at);
        }
    }

    // Cuts the parcel by the line. A chord leaves nothing of those before it to be seen, unless the line meets
    // fewer than two sides.
    void cut_off()
    {
        cut_parcel();
        if (piece_.single_points().size() < kWholeChord && (probe_open_ || bisection_open_)) {
            const std::vector<PL_PNT2D_record> crossings_of_probe = crossings_before_;
            if (bisection_open_)
                finish_bisection_before_line();
            if (probe_open_)
                take_probe(crossings_of_probe);
        }
        probe_open_ = false;
    }

    // Most lines meet two sides, and the midpoint of their chord is not seen: the next line has another.
    void take_chord(const std::vector<PL_PNT2D_record>& crossings, PL_PNT2D_record& r2)
    {
        cut_.NumIntersez = 0;
        if (crossings.size() == kWholeChord) {
            cut_.NumIntersez = static_cast<std::int32_t>(kWholeChord);
            cut_.PuntoRis1 = crossings[0];
            r2 = crossings[1];
            chord_ = {crossings[0], crossings[1]};
            midpoint_open_ = true;
            return;
        }
        for (const PL_PNT2D_record& crossing : crossings)
            cut_.TrovaLimitiSegmento(cut_.PuntoRis1, r2, crossing);
        if (crossings.size() > kWholeChord)
            midpoint_open_ = false;
    }

    void settle_midpoint()
    {
        if (!midpoint_open_)
            return;
        midpoint_open_ = false;
        const std::int32_t crossings = cut_.NumIntersez;
        cut_.NumIntersez = 0;
        PL_PNT2D_record r1 = {};
        PL_PNT2D_record r2 = {};
        for (const PL_PNT2D_record& crossing : chord_)
            cut_.TrovaLimitiSegmento(r1, r2, crossing);
        cut_.NumIntersez = crossings;
    }

    // A line of the sweep is a probe: its second end is not that of the result. Its chord is taken later, if at
    // all, since as a rule that of the next line takes its place.
    void probe() { probe_open_ = true; }

    void settle_probe()
    {
        if (probe_open_)
            take_probe(piece_.single_points());
        probe_open_ = false;
    }

    void take_probe(const std::vector<PL_PNT2D_record>& crossings)
    {
        PL_PNT2D_record probe_end = {};
        take_chord(crossings, probe_end);
    }

    void show_piece()
    {
        piece_.write_to(cut_.VettParziale);
        cut_.NumPuntiParz = piece_.size();
        cut_.AreaParziale = piece_.area();
    }

    CFrazArea& cut_;
    ParallelTrials trials_;
    PartialPolygon piece_;
    HopelessLines hopeless_;
    TrialLine line_;                                 // the current one
    Bisection open_ = {};                            // goes on from here,
    bool bisection_open_ = false;                    // if it is finished at all
    bool probe_open_ = false;                        // its chord has not been taken
    std::array<PL_PNT2D_record, 2> chord_ = {};      // the last one with two ends,
    bool midpoint_open_ = false;                     // whose midpoint has not been taken
    std::vector<PL_PNT2D_record> crossings_before_;  // of the line before it
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
    search.show();
    return true;
}

void CFrazArea::TrovatoPuntoMaxEtMedioConPuntoPrec(PL_PNT2D_record& q)
{
    plcalc::ParallelSearch search(*this);
    q = search.bisect(q);
    search.show();
}

bool CFrazArea::CalcAreaDaPuntoPrimaDiVertice(PL_PNT2D_record& r1, PL_PNT2D_record& r2)
{
    plcalc::TrialLine line;
    line.c = RettaMobile.c;
    line.offset.dist = DistLinea;
    line.offset.gon = AngLinea;
    line.offset.known = true;
    line.offset.gon_known = true;
    plcalc::ParallelSearch(*this, RettaMobile).measure(line, r1, r2);
    return true;
}
