// The way of a clip's points into the session.
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "video/cDigit.h"

// The clip has another name than when its points were kept.
void cDigit::RenameFormer()
{
    if (mFormerFN.empty()) return;
    for (VideoIDRow& Row : gVideoID)
        if (Row.SampleID == mVideo.SampleID && Row.VideoFN == mFormerFN) Row.VideoFN = Clip.Title;
    for (RowArray<VidCoordsRow>* Rows : {&gVidCoords, &gVidAngles})
        for (VidCoordsRow& Row : *Rows)
            if (IsOfVideo(Row, mVideo.SampleID, mFormerFN)) Row.VideoFN = Clip.Title;
}

bool cDigit::Store(bool (*StoreRow)(const VideoIDRow&))
{
    if (gCurFile != Session) {
        MsgBox("These points belong to the session " + Session + ": open it, and save them then.", TitleWarning);
        return false;
    }
    SaveFrame();
    const auto FormerVideo = gVideoID;
    const auto FormerCoords = gVidCoords;
    const auto FormerAngles = gVidAngles;
    RenameFormer();
    const bool IsStored = StoreRow(mVideo);
    if (IsStored && mDigitMode == DigitBody) Kept.Store(mVideo.SampleID, Clip.Title, Clip.Frames);
    if (IsStored && WriteSession()) {
        mFound = true;
        mDirty = false;
        mFormerFN.clear();
        return true;
    }
    gVideoID = FormerVideo;
    gVidCoords = FormerCoords;
    gVidAngles = FormerAngles;
    return false;
}

bool cDigit::SaveRower()
{
    return Store([](const VideoIDRow& Row) {
        StoreVidID(Row);
        return true;
    });
}

bool cDigit::SaveData()
{
    return Store([](const VideoIDRow& Row) {
        if (SaveVidID(Row)) return true;
        MsgBox("Video ID data was not saved!", TitleWarning);
        return false;
    });
}
