// Finds the logger's answers in the bytes of a link that may carry frames too, whole ones and torn ones.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// An answer is a line "#KEY: value" with a CR behind it. It is found when it comes byte by byte, between frames, in
/// the middle of a line that frames interrupt, or directly behind a frame that breaks off. Bytes of frames are never
/// taken for one: a line counts when it ends where the frames go on or where the logger falls silent.
class cAnswerFinder
{
public:
    /// Bytes came over the link.
    void Add(std::span<const uint8_t> Bytes);

    /// Nothing has come for a while: a frame whose end is missing will not be completed. IsOver: the wait for an answer
    /// is over and there was none, so that one may have been taken for the rest of a frame, which broke off: of the
    /// last one, or of the last one that ends with an answer as if it had been filled up by it exactly.
    void Settle(bool IsOver = false);

    /// The lines found since the last call, without CR and blanks around them.
    std::vector<std::string> TakeLines();

    /// Whether bytes wait for what follows them.
    bool IsUnsettled() const { return !Pending.empty(); }

private:
    void Resolve(bool IsCalm);
    bool PassFrame(bool IsCalm);
    bool PassText(bool IsCalm);
    std::size_t AddLinesAtEnd(std::string_view Text, std::size_t EndsBehind);

    std::string Pending;     // bytes that are neither of a whole frame nor of a finished text
    std::string LastFrame;   // the last whole frame, while nothing else has come
    std::string AnswerFrame; // the last frame that ended with an answer, since the last wait was over
    std::string Begun;       // beginning of a line
    bool IsInText = false;   // the last bytes were lines: others than answers are lines too
    std::vector<std::string> Lines;
};

/// Key and value of an answer: "MODE" and "2,40,0" of "#MODE: 2,40,0". Both empty for another text.
struct AnswerParts
{
    std::string Key;
    std::string Value;
};
AnswerParts SplitAnswer(std::string_view Line);
