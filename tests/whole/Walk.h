// A folder with the demonstration sessions, in which commands of the batch program and of the simulator are run one
// after the other in this process. What each of them says and writes is taken down for a golden file.
#pragma once

#include "batch/mCommands.h"
#include "files/mMain.h"
#include "files/mTextIO.h"
#include "sim/mRecord.h"
#include "support/Fresh.h"
#include "support/Golden.h"
#include "support/SurfaceLog.h"

#include <iostream>
#include <set>
#include <sstream>

class Walk : public FreshState
{
public:
    Walk()
    {
        for (const auto& Each : std::filesystem::directory_iterator(SOURCE_FOLDER "/demo"))
            std::filesystem::copy(Each.path(), Folder.Path(""));
        std::filesystem::current_path(Folder.Path(""));
        NoteFiles();
    }
    ~Walk() { std::filesystem::current_path(Before); }

    /// What was taken down.
    Texts Lines;

    /// So many lines of a text are taken down as they are.
    std::size_t FewLines = 30;

    /// Runs a line: "sim" and its arguments; "edit FILE OLD NEW", where | stands for a tab; "flip FILE BYTE"; settings
    /// as KEY=VALUE and a command of the batch program.
    void Run(const std::string& Line)
    {
        Lines.push_back("> " + Line);
        Texts Words;
        std::istringstream Split(Line);
        for (std::string Word; Split >> Word;)
            Words.push_back(Word);
        Begin();
        const std::string Name = Words[0];
        if (Name == "sim")
            Simulate({Words.begin() + 1, Words.end()});
        else if (Name == "edit")
            Edit(Words[1], Words[2], Words[3]);
        else if (Name == "flip")
            Flip(Words[1], static_cast<std::size_t>(Val(Words[2])));
        else
            Batch(Words);
        NoteTold();
        NoteFiles();
    }

    /// Takes down what was drawn, few calls as they are, of many the sums of Wide columns.
    void NoteDrawing(const std::string& What, SurfaceLog& Surface, std::size_t Few = 14, std::size_t Wide = 7)
    {
        Texts Calls = Surface.Take();
        if (Calls.empty()) return;
        Lines.push_back(What + ": " + FormatNum(static_cast<double>(Calls.size()), "0") + " calls");
        Texts& Former = Drawn[&Surface];
        if (Calls == Former && Calls.size() > Few) {
            Lines.back() += " as before";
            return;
        }
        for (const std::string& Line : Digest(Calls, ' ', Few, Wide))
            Lines.push_back("  " + Line);
        Former = std::move(Calls);
    }

    /// Takes down a line of a window when it has changed; What names its place there.
    void NoteNew(const std::string& What, const std::string& Line)
    {
        if (std::exchange(Shown[What], Line) != Line) Lines.push_back("  " + Line);
    }

    /// Starts a program anew and opens a session in it.
    void Open(const std::string& Session)
    {
        Begin();
        REQUIRE(OpenSession(Session));
    }

    /// Takes down what the user was told since.
    void NoteTold()
    {
        std::string Progress;
        for (Texts* Told : {&Dialogs.Told, &Status.Shown})
            for (const std::string& Each : std::exchange(*Told, {}))
                if (Each.ends_with('%'))
                    Progress = Each;
                else
                    Lines.push_back(Each);
        if (!Progress.empty()) Lines.push_back("progress ends at " + Progress);
    }

    /// Takes down which files have changed, and of texts the lines that no file had before.
    void NoteFiles()
    {
        std::map<std::string, std::string> Now;
        for (const auto& Each : std::filesystem::directory_iterator(Folder.Path("")))
            if (Each.is_regular_file()) Now[Each.path().filename().string()] = *ReadWhole(Each.path().string());
        for (const auto& [Name, Text] : Now) {
            const std::string Old = std::exchange(Files[Name], Text);
            if (Old != Text) NoteFile(Name, Text);
        }
    }

private:
    void Begin()
    {
        StartFresh();
        gHost = {&Dialogs, &Status, &Settings};
        Settings = {};
        LoadSettings();
        Dialogs.AnswerYes = true;
        Status.CancelAt = 101;
        Dialogs.Told.clear();
        Status.Shown.clear();
    }

    void Simulate(const Texts& Words)
    {
        SimOptions Options;
        Lines.push_back(ParseSimOptions(Words, Options));
        SetCurFile(Options.Session);
        REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Non));
        Lines.back() += RecordFile(Options, gFile);
    }

    static void Edit(const std::string& Name, std::string Old, std::string New)
    {
        for (std::string* Each : {&Old, &New})
            std::replace(Each->begin(), Each->end(), '|', '\t');
        std::string Text = *ReadWhole(Name);
        REQUIRE(Text.find(Old) != std::string::npos);
        REQUIRE(SaveWhole(Name, Text.replace(Text.find(Old), Old.size(), New)));
    }

    static void Flip(const std::string& Name, std::size_t Byte)
    {
        std::string Bytes = *ReadWhole(Name);
        Bytes.at(Byte) = static_cast<char>(Bytes.at(Byte) ^ 0x80);
        REQUIRE(SaveWhole(Name, Bytes));
    }

    void Batch(Texts Words)
    {
        for (; Words[0].find('=') != std::string::npos; Words.erase(Words.begin())) {
            const std::size_t Equal = Words[0].find('=');
            const Setting* const Item = FindSetting(Words[0].substr(0, Equal));
            REQUIRE(Item);
            Settings.SaveSetting(Item->Section, Item->Key, Words[0].substr(Equal + 1));
        }
        const auto Commands = AllCommands();
        const auto Each = std::find_if(Commands.begin(), Commands.end(),
                                       [&](const Command& Listed) { return Listed.Name == Words[0]; });
        REQUIRE(Each != Commands.end());
        Args Line;
        std::string Wrong = ParseArgs({Words.begin() + 1, Words.end()}, Each->Options, Line);
        if (Wrong.empty() && Each->Objection) Wrong = Each->Objection(Line);
        if (!Wrong.empty()) return Lines.push_back("wrong: " + Wrong);
        LoadSettings();
        std::ostringstream Out, Err;
        std::streambuf* const Screen = std::cout.rdbuf(Out.rdbuf());
        std::streambuf* const Errors = std::cerr.rdbuf(Err.rdbuf());
        gHost.Dialogs = &gBatchDialogs;
        gBatchDialogs.Answer.reset(); // of the command before: each has a program of its own
        const bool IsDone = Guard(Each->Name, [&] { return Each->Run(Line); });
        std::cout.rdbuf(Screen);
        std::cerr.rdbuf(Errors);
        AddText(Out.str());
        AddText(Err.str());
        if (!IsDone) Lines.push_back("failed");
    }

    void AddText(const std::string& Text)
    {
        if (Text.empty()) return;
        const Texts All = LinesOf(Text);
        for (const std::string& Line : Digest(All, Text.find('\t') == std::string::npos ? ',' : '\t', FewLines))
            Lines.push_back("    " + Line);
    }

    void NoteFile(const std::string& Name, const std::string& Text)
    {
        const Texts All = LinesOf(Text);
        CellSums Whole;
        std::string New;
        for (std::size_t i = 0; i < All.size(); ++i) {
            for (const std::string& Cell : PartsOf(All[i], '\t'))
                Whole.Add(Cell, static_cast<double>(i));
            if (Known.insert(All[i]).second) New += All[i] + "\n";
        }
        if (Lines.empty()) return; // the demonstration itself
        Lines.push_back("  " + Name + " " + FormatNum(static_cast<double>(All.size()), "0") + " lines");
        if (Name.ends_with(".qvn")) return;
        Lines.back() += ", cells " + Whole.Text();
        AddText(New);
    }

    std::filesystem::path Before = std::filesystem::current_path();
    std::map<std::string, std::string> Files;
    std::map<std::string, std::string> Shown;
    std::map<const SurfaceLog*, Texts> Drawn;
    std::set<std::string> Known; // lines of all of them so far
};
