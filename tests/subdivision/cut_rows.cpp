#include "cut_rows.h"

#include "support/bits.h"
#include "support/cut_state.h"

namespace test {

namespace {

CutEnds base_of(const CutRow& row)
{
    if (row.side == kNoSide)
        return row.points;
    const auto first = static_cast<std::size_t>(row.side);
    return {row.parcel[first], row.parcel[(first + 1) % row.parcel.size()]};
}

void check_answer(const CutRow& row, const Answer& answer)
{
    EXPECT_EQ(answer.done, row.done);
    EXPECT_POINT(answer.p1, (row.line.first));
    EXPECT_POINT(answer.p2, (row.line.second));
    EXPECT_BITS(answer.z1, 0.0);
    EXPECT_BITS(answer.z2, 0.0);
}

void check_members(const CutRow& row, CFrazArea& cut)
{
    using In = CFrazAreaInspector;
    const CutEnds base = row.base.value_or(base_of(row));
    EXPECT_POINT(In::PuntoRis1(cut), (row.line.first));
    EXPECT_POINT(In::PuntoRis2(cut), (row.line.second));
    EXPECT_POINT(In::PuntoLato1(cut), (base.first));
    EXPECT_POINT(In::PuntoLato2(cut), (base.second));
    EXPECT_EQ(In::NumIntersez(cut), row.counts.NumIntersez);
    EXPECT_EQ(In::NumPuntiParz(cut), row.counts.NumPuntiParz);
    EXPECT_EQ(In::Trovato(cut), row.counts.Trovato);
    EXPECT_EQ(In::NumPunti(cut), row.counts.NumPunti);
    EXPECT_EQ(In::IndiceInizio(cut), row.counts.IndiceInizio);
    EXPECT_BITS(In::DistLinea(cut), row.measures.DistLinea);
    EXPECT_NEAR(In::AngLinea(cut), row.measures.AngLinea, 1e-10);
    EXPECT_BITS(In::AreaParziale(cut), row.measures.AreaParziale);
    EXPECT_BITS(In::AreaRichiesta(cut), row.measures.AreaRichiesta.value_or(row.area));
}

}  // namespace

void check_cut(const CutRow& row, int modo, int calls)
{
    SCOPED_TRACE(row.what);
    const CPoint3dVector parcel = parcel_of(row.parcel);
    const CutEnds base = base_of(row);
    CFrazArea cut(parcel, base.first, base.second, modo, 1, row.area, kUntouched);
    Answer answer = run(cut);
    for (int call = 1; call < calls; ++call)
        answer = run(cut);
    check_answer(row, answer);
    check_members(row, cut);
}

}  // namespace test
