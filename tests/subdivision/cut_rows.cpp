#include "cut_rows.h"

#include "support/bits.h"

namespace test {

void check_cut(const CutRow& row, int modo, int calls)
{
    using In = CFrazAreaInspector;
    SCOPED_TRACE(row.what);
    const CPoint3dVector parcel = parcel_of(row.request.ring);
    CFrazArea cut(parcel, row.request.p1, row.request.p2, modo, 1, row.request.area, kUntouched);
    Answer answer = run(cut);
    for (int call = 1; call < calls; ++call)
        answer = run(cut);

    EXPECT_EQ(answer.done, row.done);
    EXPECT_POINT(answer.p1, (row.ends.PuntoRis1));
    EXPECT_POINT(answer.p2, (row.ends.PuntoRis2));
    EXPECT_BITS(answer.z1, 0.0);
    EXPECT_BITS(answer.z2, 0.0);
    EXPECT_POINT(In::PuntoRis1(cut), (row.ends.PuntoRis1));
    EXPECT_POINT(In::PuntoRis2(cut), (row.ends.PuntoRis2));
    EXPECT_POINT(In::PuntoLato1(cut), (row.ends.PuntoLato1));
    EXPECT_POINT(In::PuntoLato2(cut), (row.ends.PuntoLato2));
    EXPECT_EQ(In::NumIntersez(cut), row.counts.NumIntersez);
    EXPECT_EQ(In::NumPuntiParz(cut), row.counts.NumPuntiParz);
    EXPECT_EQ(In::Trovato(cut), row.counts.Trovato);
    EXPECT_EQ(In::NumPunti(cut), row.counts.NumPunti);
    EXPECT_EQ(In::IndiceInizio(cut), row.counts.IndiceInizio);
    EXPECT_BITS(In::DistLinea(cut), row.measures.DistLinea);
    EXPECT_NEAR(In::AngLinea(cut), row.measures.AngLinea, 1e-10);
    EXPECT_BITS(In::AreaParziale(cut), row.measures.AreaParziale);
    EXPECT_BITS(In::AreaRichiesta(cut), row.measures.AreaRichiesta);
}

}  // namespace test
