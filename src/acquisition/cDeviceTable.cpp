// Reading of the logger's lines, and the rows to be sent.
#include "acquisition/cDeviceTable.h"

#include "acquisition/cAnswerFinder.h"
#include "base/mNumText.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {
constexpr std::size_t FirstDeviceField = 2;
constexpr std::size_t LastDeviceField = 4;

std::string Trimmed(const std::string& Text)
{
    const std::size_t From = Text.find_first_not_of(" \t");
    return From == std::string::npos ? "" : Text.substr(From, Text.find_last_not_of(" \t") + 1 - From);
}

std::vector<std::string> Fields(const std::string& Value)
{
    std::vector<std::string> Parts(1);
    for (const char C : Value)
        if (C == ',')
            Parts.emplace_back();
        else
            Parts.back() += C;
    for (std::string& Part : Parts)
        Part = Trimmed(Part);
    return Parts;
}

std::optional<std::size_t> RowNumber(const std::string& Text)
{
    std::size_t Row = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Row);
    const bool IsRow = Error == std::errc{} && End == Text.data() + Text.size() && Row < cDeviceTable::MaxRows;
    return IsRow ? std::optional(Row) : std::nullopt;
}
} // namespace

bool cDeviceTable::IsSame(std::size_t Row) const
{
    const bool IsWanted = Row < Rows.size();
    if (!Has[Row]) return !IsWanted;
    return IsWanted ? *Has[Row] == Rows[Row] : !Has[Row]->IsOn;
}

int cDeviceTable::Differences() const
{
    int Count = 0;
    for (std::size_t Row = 0; Row < MaxRows; ++Row)
        Count += IsSame(Row) ? 0 : 1;
    return Count;
}

void cDeviceTable::TakeFound(const std::vector<std::string>& Lines)
{
    for (const std::string& Line : Lines) {
        const AnswerParts Answer = SplitAnswer(Line);
        if (Answer.Key != Shape.FindKey) continue;
        std::string Device = Answer.Value;
        if (*Shape.NameBegins) {
            const std::size_t Hyphen = Device.find('-');
            if (Hyphen == std::string::npos || !Trimmed(Device.substr(Hyphen + 1)).starts_with(Shape.NameBegins))
                continue;
            Device = Trimmed(Device.substr(0, Hyphen));
        }
        if (!Device.empty() && std::find(Seen.begin(), Seen.end(), Device) == Seen.end()) Seen.push_back(Device);
    }
}

void cDeviceTable::TakeTable(const std::vector<std::string>& Lines)
{
    Rows.clear();
    Has.fill({});
    IsKnown = !Lines.empty();
    for (const std::string& Line : Lines) {
        const AnswerParts Answer = SplitAnswer(Line);
        const auto Parts = Fields(Answer.Value);
        const auto Row = RowNumber(Parts[0]);
        if (Answer.Key != Shape.TableKey || !Row || Parts.size() <= FirstDeviceField) continue;
        LoggerDevice Device{Parts[FirstDeviceField], Parts[1] == "1"};
        for (std::size_t i = FirstDeviceField + 1; i <= LastDeviceField && i < Parts.size(); ++i)
            Device.Text += "," + Parts[i];
        if (Device.Text.find_first_not_of("0, ") != std::string::npos) Has[*Row] = std::move(Device);
    }
    for (const auto& Device : Has)
        if (Device) Rows.push_back(*Device);
}

bool cDeviceTable::Select(std::size_t Device)
{
    const bool IsThere =
        std::any_of(Rows.begin(), Rows.end(), [&](const LoggerDevice& Row) { return Row.Text == Seen.at(Device); });
    if (IsThere || Rows.size() == MaxRows) return false;
    Rows.push_back({Seen.at(Device), true});
    return true;
}

void cDeviceTable::Delete(std::size_t Row)
{
    Rows.erase(Rows.begin() + static_cast<std::ptrdiff_t>(Row));
}

bool cDeviceTable::Move(std::size_t Row, int Step)
{
    const std::size_t Other = Row + static_cast<std::size_t>(Step); // wraps round below 0
    if (Row >= Rows.size() || Other >= Rows.size()) return false;
    std::swap(Rows[Row], Rows[Other]);
    return true;
}

std::vector<std::string> cDeviceTable::Commands() const
{
    std::vector<std::string> Sent;
    for (std::size_t Row = 0; Row < MaxRows; ++Row)
        if (Row < Rows.size())
            Sent.push_back(RowCommand(Row, Rows[Row]));
        else if (Has[Row] && Has[Row]->IsOn)
            Sent.push_back(RowCommand(Row, {Has[Row]->Text, false}));
    return Sent;
}

std::string cDeviceTable::RowCommand(std::size_t Row, const LoggerDevice& Device) const
{
    return "#" + std::string(Shape.TableKey) + "=" + FormatNum(static_cast<double>(Row), "0") + "," +
           (Device.IsOn ? "1" : "0") + "," + Device.Text;
}
