// The look-ups by identifier.
#include "core/mGlobData.h"
#include "support/Case.h"

TEST_CASE("channels are found exactly, and the empty name finds none")
{
    CHECK(FindChan(gFile.Calibr, "A1") == -1);
    for (const char* Name : {"a1", "", "A1", "A1"}) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Row.ParamID = Name;
        Row.Q1 = Row.Chan;
    }
    CHECK(FindChan(gFile.Calibr, "A1") == 3);
    CHECK(FindChan(gFile.Calibr, "") == -1);
    gFile.KeyChanID = "A1";
    ResolveChannels();
    CHECK(gKeyChan == 3);
    CHECK(gKeyQ1 == 3);
    CHECK(gH1Chan == -1);
    CHECK(gH1Q1 == 0);
}

TEST_CASE("curves are found by sample and parameter together, samples by one of three fields")
{
    for (const auto& [Sample, Param] : {std::pair{"S01", "A1"}, {"S01", "H1"}, {"S02", "A1"}, {"S02", "H1"}}) {
        DataRow& Row = gFile.Data.Grow();
        Row.SampleID = Sample;
        Row.ParamID = Param;
    }
    CHECK(FindData(gFile.Data, "S02", "A1") == 3);
    CHECK(FindData(gFile.Data, "S01", "H1") == 2);
    CHECK(FindData(gFile.Data, "S03", "A1") == -1);
    CHECK(FindData(gFile.Data, "S01", "A2") == -1);
    for (const auto& [Test, Raw, Prim] : {std::tuple{"S01", "a.qvn", "1a"}, {"S02", "b.qvn", "a.qvn"}}) {
        DescRow& Row = gFile.Desc.Grow();
        Row.SampleID = Test;
        Row.RawFN = Raw;
        Row.PrimFN = Prim;
    }
    CHECK(FindDesc(gFile, "S02", DescKey::TestID) == 2);
    CHECK(FindDesc(gFile, "a.qvn", DescKey::RawFN) == 1);
    CHECK(FindDesc(gFile, "a.qvn", DescKey::PrimFN) == 2);
    CHECK(FindDesc(gFile, "b.qvn", DescKey::TestID) == -1);
    CHECK(FindDesc(gFile, "", DescKey::RawFN) == -1);
}

TEST_CASE("the sample store keeps what it holds when it grows and shrinks")
{
    SampleStore Store;
    Store.Create(3, 0);
    for (int i = 0; i <= 1000; ++i) {
        Store.Resize(i);
        for (int Chan = 0; Chan <= 3; ++Chan)
            Store(Chan, i) = Chan * 10000 + i;
    }
    Store.Resize(500);
    Store.Resize(600);
    CHECK(Store.UBound() == 600);
    CHECK(Store(2, 500) == 20500);
    CHECK(Store(2, 501) == 0);
    CHECK(Store.Channel(3)[499] == 30499);
    const std::vector<double> Run = {1, 2, 3, 4, 5};
    for (const int First : {0, 7, 596}) {
        Store.Put(1, First, Run);
        for (int i = 0; i < 5; ++i)
            CHECK(Store(1, First + i) == i + 1);
    }
    CHECK(Store(1, 5) == 10005);
    CHECK_THROWS_AS(Store.Put(1, 597, Run), RunError);
    CHECK_THROWS_AS(Store(4, 0), RunError);
    CHECK_THROWS_AS(Store(0, 601), RunError);
    CHECK_THROWS_AS(Store(-1, 0), RunError);
}
