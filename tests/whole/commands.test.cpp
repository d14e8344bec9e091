// The batch program's commands on recordings of the demonstration sessions, with usual and with odd settings.
#include "whole/Walk.h"

#include "calibration/CalBench.h"

sDialogs gBatchDialogs(nullptr);

namespace {
struct Script
{
    const char* Golden;
    std::vector<const char*> Lines;
};
} // namespace

TEST_CASE("commands of the batch program say and write what the golden lists have")
{
    const Script Scripts[] = {
        {"whole-single.txt",
         {"sim single.txt --file=a.qvn --strokes=9 --seed=3 --rate=31 --spread=5",
          "dump single.txt a.qvn a.dump",
          "export single.txt a.qvn a.csv",
          "export single.txt a.qvn a.csv --from 3 --to 6 --filter",
          "export single.txt a.qvn a.csv --from 8 --to 7",
          "export single.txt a.qvn a.csv --from 3 --to 99999",
          "export single.txt a.qvn none/a.csv",
          "dump single.txt a.qvn none/a.dump",
          "rezero single.txt single.txt --group 0",
          "scan single.txt single.txt a.str",
          "mend single.txt b.qvn",
          "live single.txt single.txt a.live",
          "scan single.txt a.qvn a.str",
          "gDataFreq=50 scan single.txt a.qvn a.str",
          "strokes single.txt a.qvn",
          "strokes single.txt a.qvn --start 60 --stop 300 --filter",
          "process single.txt a.qvn --dist 250 --time 61.5 --comment Wind",
          "gProcRuns=1 StdFilter=0.8 process single.txt a.qvn --start 40 --stop 350 --filter",
          "gProcRuns=2 StdFilter=1.2 gExpSTD=1 process single.txt a.qvn a.qvn --out b.txt",
          "gProcRuns=3 process single.txt a.qvn",
          "derive b.txt S01 b.tab",
          "derive b.txt S03 b.tab --view 4",
          "play b.txt b.tab --sample S03 --at 0 0.3 0.98 1 -0.2",
          "play b.txt b.tab --raw a.qvn --at 4 4.04 0 -1 17.5 99 4.02",
          "play b.txt b.tab --sample S09 --at=0",
          "play b.txt b.tab --raw b.txt --at 0",
          "patterns b.txt S03 b.csv",
          "report b.txt S03 b.pdf",
          "live single.txt a.qvn a.live",
          "gSeatChan=23 gTrunkChan=24 live single.txt a.qvn a.live --panel catch",
          "gSeatChan=23 live single.txt a.qvn a.live --panel ergo",
          "live single.txt a.qvn a.live --panel coach",
          "live single.txt a.qvn a.live --panel coach --average",
          "live single.txt a.qvn a.live --panel coach --targets Targets.ini --separate",
          "live single.txt a.qvn a.live --panel coach --targets none.ini",
          "live single.txt a.qvn a.live --separate",
          "info b.txt",
          "resave b.txt c.txt --filter Non",
          "rezero single.txt a.qvn --group 0",
          "rezero single.txt a.qvn --group 1 --out c.txt",
          "rezero single.txt a.qvn --group 2",
          "rezero single.txt a.qvn --group 3",
          "rezero single.txt a.qvn --group 4",
          "lookup single.txt T1 0 100 8191 8192 8300 8200 16383",
          "lookup single.txt 17 0 8134 16383",
          "sim single.txt --file=m.qvn --monitor=m.txt --strokes=4 --rate=26",
          "monitor m.txt m.out"}},
        {"whole-eight.txt",
         {"sim eight.txt --file=e.qvn --strokes=6 --seed=8 --rate=34 --freq=50", "dump eight.txt e.qvn e.dump",
          "gDataFreq=50 scan eight.txt e.qvn e.str", "strokes eight.txt e.qvn", "process eight.txt e.qvn",
          "derive eight.txt S01 e.tab", "patterns eight.txt S01 e.csv", "live eight.txt e.qvn e.live",
          "gDoReZero=1 live eight.txt e.qvn e.live --panel coach",
          "gSeatChan=20 live eight.txt e.qvn e.live --panel catch"}},
        {"whole-tables.txt",
         {"table eight.txt Crew c.csv", "table single.txt Crew --from eight.txt --out a.txt",
          "table single.txt Crew --from c.csv", "table single.txt View1 v.csv",
          "table single.txt View1 --from v.csv --out a.txt", "edit c.csv 1.94 1,94",
          "table single.txt Crew --from c.csv", "table single.txt Crew --from none.csv",
          "table single.txt Boat --from c.csv", "table single.txt Segs --from eight.txt",
          "table single.txt Antro a.csv", "table single.txt Crew", "table single.txt Crew a.csv --from c.csv",
          "table single.txt Crew a.csv --out b.txt", "edit eight.txt H1|1|2|0|0.00|-145.630 H1|1|2|0|0.00|-150.5",
          "readids single.txt eight.txt --out a.txt", "edit eight.txt FRC-204 FRC-210",
          "readids eight.txt single.txt --out a.txt", "readids single.txt c.csv"}},
        {"whole-odd.txt",
         {"sim single.txt --file=f.qvn --strokes=8 --seed=5 --rate=22 --freq=100 --drop=8 --spikes=12 --junk=10",
          "export single.txt f.qvn f.csv",
          "export single.txt f.qvn f.csv --filter",
          "scan single.txt f.qvn f.str",
          "gDataFreq=100 process single.txt f.qvn --filter",
          "flip f.qvn 30001",
          "dump single.txt f.qvn f.dump",
          "process single.txt f.qvn --out g.txt",
          "mend f.qvn g.qvn",
          "dump single.txt g.qvn g.dump",
          "live single.txt f.qvn f.live",
          "sim single.txt --file=k.qvn --seconds=20 --kinds=26,38,34,0,36",
          "dump single.txt k.qvn k.dump",
          "export single.txt k.qvn k.csv --filter",
          "edit single.txt 0.04000000|0|A1 0.04000000|1|A1",
          "sim single.txt --file=k.qvn --strokes=5 --rate=40",
          "process single.txt k.qvn",
          "strokes single.txt k.qvn",
          "edit single.txt 0.04000000|1|A1 0.04000000|2|H2",
          "sim single.txt --file=k.qvn --strokes=5 --rate=18",
          "process single.txt k.qvn",
          "scan single.txt k.qvn k.str",
          "live single.txt k.qvn k.live --panel catch",
          "edit single.txt 0.04000000|2|H2|0.0000 0.04000000|3|V1|1.5000",
          "process single.txt k.qvn",
          "scan single.txt k.qvn k.str",
          "strokes single.txt k.qvn",
          "edit single.txt 0.04000000|3|V1 0.04000000|0|Zz",
          "process single.txt k.qvn",
          "scan single.txt k.qvn k.str",
          "strokes single.txt k.qvn"}}};
    for (const Script& Each : Scripts) {
        Walk Walking;
        for (const char* Line : Each.Lines)
            Walking.Run(Line);
        CheckGolden(Each.Golden, Walking.Lines);
    }
}
