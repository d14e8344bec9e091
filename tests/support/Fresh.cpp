// The globals of each module. Their first values are those that they have when a test program starts.
#include "support/Fresh.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "core/mVideoFile.h"
#include "files/mBinIO.h"
#include "files/mQVN.h"
#include "files/mRawLog.h"
#include "files/mStream.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"
#include "processing/mNorm.h"
#include "processing/mProcess.h"
#include "processing/mRefTable.h"
#include "processing/mStrokeLog.h"
#include "records/mAntro.h"
#include "records/mTargets.h"
#include "views/data/cData02view.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewSave.h"

#include <functional>
#include <vector>

namespace {
using Work = std::vector<std::function<void()>>;

// Makes the values that the globals have now those that they get back.
template <class... Kinds>
void Keep(Work& PutBack, Kinds&... Globals)
{
    (PutBack.push_back([&Globals, First = Globals] { Globals = First; }), ...);
}

Work KeepAll()
{
    Work All;
    // The session and its data.
    Keep(All, gFile, gDots, gSegs, gVideoID, gVidCoords, gVidAngles, gAntro, gData, gRawStart, gRawStop, gTimeStep,
         gDeltaT, gSampleTime, gFrequency, gFrameMin, gFrameCnt, gMissed, gPlayIdx, gKeyChan, gKeyMode, gH1Chan,
         gStrokeCnt, gKeyQ0, gKeyQ1, gH1Q0, gH1Q1, gCurFile, gFileTitle, gCurDir, gSessID, gRawFN, gFromFile,
         gFirstCycle, gRate, gCycleTime, gCycleSum, gRateAver, gPlayTime, gPlayStep, gPlayFrame, gVidMs, gVideoFN,
         gVideoDir, gVideoStrokes, gCurSample);
    // The ini file.
    Keep(All, gAppDir, gSysID, gBaseFolder, gCOMdevice, gBackground, gModelsFN, gMainPlace, gCOMport, gLinkAddress,
         gLinkPort, gAutoCalCh, gAutoCalQ0, gAutoCalQ1, gCalibrSens, gIsCurves, gIsValue, gIsInd, gIsGrid, gIsScore,
         gIsSound);
    // Readers and processing.
    Keep(All, gOldInboard, gOldOarLen, gOldBladeLen, gLinkStream, gReplayStream, gScanStream, gScanData, gSignedADC,
         gLastGPS, gScanRows, gSampleName, gNormAver1, gNormCnt1, gNormStd1, gNormAver2, gNormCnt2, gNormStd2, gKeyWin,
         gMeanCycleT, gCycleSD, gRateSD, gTestTime, gBadStrokes, gRefTabs, gRefCnt, gDriveT, gMaxFT, gRecovT, gLength,
         gMaxForce, gAverForce, gImpulse, gWork, gPower, StrokeLogFN);
    // Windows.
    Keep(All, gTarget, gTargets, gCurves, gDist, gDistStart, gDistStop, gScanStart, gScanStop, gDistInp, gTimeInp);
    return All;
}
} // namespace

void StartFresh()
{
    static const Work PutBack = KeepAll();
    for (const auto& Each : PutBack)
        Each();
    gRaw = {};
    sSettings None;
    gHost = {};
    gHost.Settings = &None;
    LoadSettings();
    gHost = {};
    InitLink();
}
