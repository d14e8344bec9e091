// What the athlete dialog does: one athlete's fields as texts, their check, and the new session made from them.
#pragma once

#include "records/mFormText.h"
#include "records/mSession.h"

#include <array>
#include <functional>
#include <span>
#include <string>
#include <vector>

// The letters of an athlete.
std::span<const LetterChoice> GenderChoices();
std::span<const LetterChoice> WeightGroupChoices();
std::span<const LetterChoice> AthleteAgeChoices();

/// Boxes Text1 of the dialog.
enum eAthleteBox : std::size_t
{
    AthleteDate,
    AthleteCount,
    AthleteName,
    AthleteRowerID,
    AthleteClub,
    AthleteBirth,
    AthleteStart,
    AthleteHeight,
    AthleteWeight,
    AthleteBoxCnt
};

/// The captions of the boxes, with their units.
std::span<const char* const, AthleteBoxCnt> AthleteCaptions();

/// The fields as they are typed and chosen.
struct AthleteForm
{
    std::array<std::string, AthleteBoxCnt> Text;
    std::string Gender; // of these four the letter; empty when none is chosen
    std::string WeightGroup;
    std::string BoatType;
    std::string AgeGroup;
    std::string Folder; // that the session goes to
};

/// The fields of the first crew row and the open session, with today's date and the running counter.
AthleteForm LoadAthlete();

/// The folders in Folder, without hidden ones, in order.
std::vector<std::string> FoldersIn(const std::string& Folder);

/// The folder that holds Folder; empty when none does.
std::string FolderAbove(const std::string& Folder);

/// The file that the fields make.
std::string AthletePath(const AthleteForm& Form);

/// What making the file means, in a sentence.
std::string AthletePlan(const AthleteForm& Form);

/// What keeps the fields from being stored, in the order of the controls.
std::vector<FormFault> CheckAthlete(const AthleteForm& Form);

/// Stores the fields in a new file without samples, which becomes the open session, and counts it. MayReplace is called
/// ahead of that and can refuse. False when it was not done (reported to the user): the open session and the counter
/// stay as they were.
bool CreateDataFile(const AthleteForm& Form, const std::function<bool()>& MayReplace);
