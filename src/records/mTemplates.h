// Templates of sessions: session files that a new session takes its logger, channels, seats, rig and views from.
#pragma once

#include "core/mGlobData.h"

#include <string>
#include <vector>

struct SessionTemplate
{
    std::string Name; // of its file, without folder and extension
    std::string Path;
    DataFile Setup;
};

/// What some folders hold.
struct TemplateList
{
    std::vector<SessionTemplate> Templates;
    std::vector<std::string> Unreadable; // paths of text files that are no sessions
};

/// The session files of Folders, by number of seats and name. Of two with the same name the one in the later folder
/// counts, so that users can put their own in the place of one that came with the program.
TemplateList FindTemplates(const std::vector<std::string>& Folders);

/// A template in words: what its session says in its comment, then its channels, seats and oars.
std::string TemplateText(const SessionTemplate& Template);

/// Where the open session is kept as a template with that name: in Folder.
std::string TemplatePath(const std::string& Folder, const std::string& Name);

/// Keeps the set-up of the open session, without its samples, crew and what it says of itself, as a template with that
/// name in Folder, which is made when it is not there. Asks before it replaces one. False when it was not kept, a name
/// that is none or a failure being reported to the user.
bool KeepTemplate(const std::string& Folder, const std::string& Name);

/// Gives File the template's logger, channels, crew seats, rig and views.
void ApplyTemplate(const SessionTemplate& Template, DataFile& File);
