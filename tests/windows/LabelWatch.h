// The texts that a window's labels showed while a recording was played, each behind the one before.
#pragma once

#include "acquisition/mSampling.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "platform/qt/qText.h"
#include "support/Case.h"

#include <QLabel>
#include <QTest>

#include <map>

struct LabelWatch : cDataWindow
{
    explicit LabelWatch(const QWidget& InitOn) : cDataWindow(DataTag), On(InitOn) {}

    /// The recording is held at its last frame, since its end closes the window.
    void DrawData() override
    {
        if (gReplaying && gReplayFile.AtEnd()) gReplaying = false;
        for (const auto* Label : On.findChildren<QLabel*>())
            Add(Seen[Plain(Label->objectName())], Plain(Label->text()));
    }
    void SetLive(bool) override {}
    void Unload() override {}

    /// Waits for the last frame and its picture.
    void WaitForEnd()
    {
        REQUIRE(QTest::qWaitFor([] { return !gReplaying; }, 30000));
        QTest::qWait(60);
        DrawData();
    }

    /// Adds what a label shows now; the text that it holds already is no news.
    static void Add(Texts& To, const std::string& Text)
    {
        if (To.empty() || To.back() != Text) To.push_back(Text);
    }

    /// What a label showed beyond the text that it held at first, which is Before.
    Texts Shown(const std::string& Label, const std::string& Before)
    {
        Texts Of = Seen[Label];
        if (!Of.empty() && Of.front() == Before) Of.erase(Of.begin());
        return Of;
    }

    const QWidget& On;
    std::map<std::string, Texts> Seen;
};
