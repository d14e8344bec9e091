// What the session dialog does: the session's fields as texts, their check, and storing them in three modes.
#pragma once

#include "core/mGlobData.h"
#include "records/mFormText.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

struct SessionTemplate;

/// Modes of the session dialog.
enum eSessionMode : int16_t
{
    SessionNew,    // a new blank data file, or one from a template
    SessionSaveAs, // the set-up as a new data file, samples discarded
    SessionChange  // the fields of the open session, samples preserved
};

/// One of several letters that a field can hold.
struct LetterChoice
{
    const char* Caption;
    const char* Letter;
};

// The letters of a session.
std::span<const LetterChoice> SexChoices();
std::span<const LetterChoice> CategoryChoices();
std::span<const LetterChoice> BoatTypeChoices();
std::span<const LetterChoice> AgeGroupChoices();

/// A field of the session that stands in a box of txtPars.
struct SessionPar
{
    const char* Caption;
    std::variant<float DataFile::*, std::string DataFile::*> Member;
    const char* Pattern; // of a number
};

inline constexpr std::size_t SessionParCnt = 7;
std::span<const SessionPar, SessionParCnt> SessionPars();

/// The session's fields as they are typed and chosen.
struct SessionForm
{
    std::string Date;
    std::string SessNum;
    std::string Place;
    std::string Coach;
    std::string Sex; // of these four the letter; empty when none is chosen
    std::string Category;
    std::string BoatType;
    std::string AgeGroup;
    std::array<std::string, SessionParCnt> Pars;
    std::string Comment;
    std::string Folder; // root of the data folders
};

/// The caption of a mode.
const char* SessionCaption(eSessionMode Mode);

/// The fields of the open session with today's date; in the mode SessionNew only the letters, which a group without a
/// choice would leave as they are, and the number 1.
SessionForm LoadSession(eSessionMode Mode);

/// Fills in what a template says of the boat, in place of what the one before, if any, has filled in.
void ProposeTemplate(SessionForm& Form, const SessionTemplate* Before, const SessionTemplate* Chosen);

/// The identifier that the fields make, with the letters of File for groups without a choice.
std::string FormTitle(const SessionForm& Form, const DataFile& File);

/// Where Apply writes: the open session's file, or that of a new one.
std::string FormPath(const SessionForm& Form, eSessionMode Mode);

/// What keeps the fields from being stored, in the order of the controls.
std::vector<FormFault> CheckSession(const SessionForm& Form, eSessionMode Mode);

/// What Apply does, in a sentence.
std::string SessionPlan(const SessionForm& Form, eSessionMode Mode);

/// Stores the fields in File and composes its SessID. A group without a choice leaves its field as it was, and so does
/// the unchanged text of a number, which may show less than the field holds.
void SaveSession(const SessionForm& Form, DataFile& File);

/// Stores the fields by the mode: in the open session, or in a new file that becomes the open session, without samples.
/// In the mode SessionNew that is sampled at the rate that is set, and has the set-up of Template, for null no channels
/// and no crew. MayReplace is called ahead of it and can refuse. False when it was not done (reported to the user): the
/// open session stays as it was.
bool ApplySession(const SessionForm& Form, eSessionMode Mode, const SessionTemplate* Template,
                  const std::function<bool()>& MayReplace);

/// What making a session at Path means for a file that is there, in a sentence.
std::string NewFilePlan(const std::string& Path);

/// Whether a file at Path may be replaced: it is not there, or the user agrees.
bool MayRewriteSession(const std::string& Path);
