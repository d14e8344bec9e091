// Dates, titles and paths of sessions.
#include "records/mSessName.h"

#include "base/mNumText.h"
#include "platform/mHost.h"

#include <chrono>
#include <filesystem>

namespace fs = std::filesystem;

namespace {
// Years that two digits say.
constexpr int FirstYear = 1930;
constexpr int LastYear = 2029;

// Bytes of a title. Files beside the session have longer names, and a file system takes 255.
constexpr std::size_t MostBytes = 200;

std::chrono::year_month_day Calendar(DateDays Days)
{
    using namespace std::chrono;
    constexpr sys_days First = December / 30 / 1899;
    return First + days(static_cast<int>(Days));
}

// The parts of a date with a mark between them.
std::string YearFirst(DateDays Days)
{
    const auto Date = Calendar(Days);
    return FormatNum(static_cast<int>(Date.year()), "0000") + "_" +
           FormatNum(static_cast<unsigned>(Date.month()), "00") + "_" +
           FormatNum(static_cast<unsigned>(Date.day()), "00");
}
} // namespace

DateDays Today()
{
    if (!gHost.Clock) return 0;
    const LocalTime Now = gHost.Clock->Now();
    return DateFromCalendar(Now.Year, Now.Month, Now.Day).value_or(0);
}

std::string SortedDate(DateDays Days)
{
    return Days == 0 ? "" : YearFirst(Days);
}

std::string LongDate(DateDays Days)
{
    if (Days == 0) return {};
    const std::string Text = YearFirst(Days);
    return Text.substr(8, 2) + "/" + Text.substr(5, 2) + "/" + Text.substr(0, 4);
}

std::string WhyNoDate(const std::string& Typed)
{
    const auto Date = ParseDate(Typed);
    if (!Date) return "\"" + Typed + "\" is no date: type day/month/year";
    const int Year = *Date == 0 ? FirstYear : static_cast<int>(Calendar(*Date).year());
    if (Year >= FirstYear && Year <= LastYear) return {};
    return "a file has two digits for a year: 30 is " + FormatNum(FirstYear, "0") + ", 29 is " +
           FormatNum(LastYear, "0") + ", and no other century can be kept";
}

std::string SessionTitle(DateDays Date, const std::string& SessNum, const std::string& CrewCategory)
{
    return SortedDate(Date) + "_" + SessNum + "_" + CrewCategory;
}

std::string AthleteTitle(DateDays Date, int32_t Count, const std::string& RowerID)
{
    return SortedDate(Date) + "_" + FormatNum(Count, "0") + "_" + RowerID;
}

std::string SessionPath(const std::string& Folder, const std::string& Title)
{
    return AthletePath((fs::path(Folder) / Title).string(), Title);
}

std::string AthletePath(const std::string& Folder, const std::string& Title)
{
    std::error_code Error;
    const fs::path Whole = fs::absolute(Folder, Error);
    return ((Error ? fs::path(Folder) : Whole) / (Title + ".txt")).lexically_normal().string();
}

std::string WhyNoTitle(const std::string& Title)
{
    constexpr std::string_view NotInNames = "/\\:*?\"<>|";
    for (const char Letter : Title) {
        if (static_cast<unsigned char>(Letter) < ' ') return "a file name cannot hold a control character";
        if (NotInNames.find(Letter) != std::string_view::npos) return std::string("a file name cannot hold ") + Letter;
    }
    if (Title.size() > MostBytes) return "the file name would be too long";
    return {};
}

std::string WhyNoFolder(const std::string& Folder)
{
    if (Folder.find_first_not_of(' ') == std::string::npos) return "choose the folder that sessions are kept in";
    std::error_code Error;
    // The innermost part that is there decides.
    for (fs::path Each = fs::absolute(Folder, Error).lexically_normal(); !Each.empty(); Each = Each.parent_path()) {
        const auto Status = fs::status(Each, Error);
        if (fs::is_directory(Status)) return {};
        if (fs::exists(Status)) return Each.string() + " is a file, not a folder";
        if (Each == Each.parent_path()) break;
    }
    return {};
}
