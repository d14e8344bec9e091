// The globals of each module, and their first values.
#include "support/Fresh.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
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
#include "records/mTargets.h"
#include "views/data/cData02view.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewSave.h"

namespace {
void FreshData()
{
    gFile = {};
    gDots = {};
    gSegs = {};
    gVideoID = {};
    gVidCoords = {};
    gVidAngles = {};
    gData.fill(0);
    gRaw = {};
    gRawStart = gRawStop = gTimeStep = gDeltaT = gSampleTime = gFrequency = 0;
    gFrameMin = 0;
    gFrameCnt = gMissed = gPlayIdx = 0;
    gKeyChan = gKeyMode = gH1Chan = gStrokeCnt = 0;
    gKeyQ0 = gKeyQ1 = gH1Q0 = gH1Q1 = 0;
    for (std::string* Text : {&gCurFile, &gFileTitle, &gCurDir, &gSessID, &gRawFN})
        Text->clear();
    gFromFile = false;
    gFirstCycle = true;
    gRate = gCycleTime = gCycleSum = gRateAver = gPlayTime = 0;
}

void FreshIni()
{
    for (std::string* Text : {&gAppDir, &gSysID, &gBaseFolder, &gCOMdevice, &gBackground, &gModelsFN})
        Text->clear();
    gMainPlace = {};
    gCOMport = 1;
    gLinkAddress = "127.0.0.1";
    gLinkPort = 6000;
    gAutoCalCh = 0;
    gAutoCalQ0 = gAutoCalQ1 = 0;
    gCalibrSens = {};
    gIsCurves = gIsValue = gIsInd = gIsGrid = true;
    gIsScore = gIsSound = false;
}

void FreshSettings()
{
    sSettings None;
    gHost = {};
    gHost.Settings = &None;
    LoadSettings();
    gHost = {};
}

void FreshFiles()
{
    gOldInboard = gOldOarLen = gOldBladeLen = 0;
    gLinkStream = gReplayStream = gScanStream = {};
    gScanData = {};
    gSignedADC = false;
    gLastGPS = {};
    gScanRows.Clear();
    gSampleName.clear();
}

void FreshProcessing()
{
    for (NormTable* Table : {&gNormAver1, &gNormCnt1, &gNormStd1, &gNormAver2, &gNormCnt2, &gNormStd2})
        *Table = {};
    gKeyWin = {};
    gMeanCycleT = gCycleSD = gRateSD = gTestTime = 0;
    gBadStrokes = 0;
    gRefTabs.assign(1, {});
    gRefCnt = 0;
    gDriveT = gMaxFT = gRecovT = gLength = gMaxForce = gAverForce = gImpulse = gWork = gPower = 0;
    StrokeLogFN.clear();
}

void FreshWindows()
{
    gTarget = {};
    gTargets = {};
    gCurves.clear();
    gDist.clear();
    gDistStart = gDistStop = 0;
    gScanStart = gScanStop = gDistInp = gTimeInp = 0;
}
} // namespace

void StartFresh()
{
    FreshData();
    FreshIni();
    FreshSettings();
    FreshFiles();
    FreshProcessing();
    FreshWindows();
    InitLink();
}
