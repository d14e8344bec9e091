// Heads, lengths, meanings and help of the columns of each kind.
#include "records/mGridColumns.h"

namespace {
const Choice Sides[] = {
    {"0", "No side"}, {"1", "Port Sweep"}, {"2", "Star Sweep"}, {"3", "Port Scull"}, {"4", "Star Scull"}};
const Choice Sensors[] = {{"0", "Normal"}, {"1", "Angular: degrees at the lever"}};
const Choice YesNo[] = {{"0", "Hide"}, {"1", "Show in the data view"}};
const Choice ProcModes[] = {{"0", "Linear"},
                            {"1", "Square, one line"},
                            {"2", "Square, two lines"},
                            {"3", "Absolute"},
                            {"4", "Reference table"}};
const Choice Sexes[] = {{"M", "Male"}, {"F", "Female"}};
const Choice Weights[] = {{"H", "Heavyweight"}, {"L", "Lightweight"}};
const Choice RowModes[] = {{"0", "X is time"}, {"1", "X is the first parameter"}};
const Choice Opers[] = {{"0", "None"},    {"1", "Add"},       {"2", "Substract"},    {"3", "Multy"},
                        {"4", "Average"}, {"5", "Integral"},  {"6", "Differential"}, {"7", "Segm.Speed"},
                        {"8", "Power"},   {"11", "XY Anim."}, {"12", "XZ Anim."},    {"13", "YZ Anim."}};
const Choice AverModes[] = {{"0", "None"}, {"1", "Vertical angle"}};
const Choice Colours[] = {{"1", ""}, {"2", ""}, {"3", ""}, {"4", ""}, {"5", ""}, {"6", ""}, {"7", ""}, {"8", ""}};
const Choice Angles[] = {{"0", "A place"}, {"1", "An angle"}};

constexpr int IDLength = 8;
constexpr int TextLength = 30;
constexpr float Millimetres = 1000;

const ColumnSpec CalibrTable[] = {
    {.Head = "Chan", .Tip = "The number of the channel is the number of its row.", .Kind = eCell::RowNumber},
    {.Head = "ParamID", .Most = IDLength, .Tip = "The name by which all else finds the channel.", .IsKey = true},
    {.Head = "Sensor ID", .Most = TextLength, .Tip = "Read IDs finds a sensor's calibration by it."},
    {.Head = "Seat"},
    {.Head = "Side", .Choices = Sides},
    {.Head = "Mode", .Choices = Sensors},
    {.Head = "Lever", .Tip = "Metres."},
    {.Head = "Q0", .Tip = "Value = Q0 + Q1 x count."},
    {.Head = "Q1", .Tip = "Value = Q0 + Q1 x count."},
    {.Head = "Q2"},
    {.Head = "Min"},
    {.Head = "Max"},
    {.Head = "Visible", .Choices = YesNo},
    {.Head = "Rmain", .Tip = "Correlation of the calibration."},
    {.Head = "Log.0", .Tip = "Counts."},
    {.Head = "Proc Mode", .Choices = ProcModes},
    {.Head = "Threshold", .Tip = "With a reference table its number."},
    {.Head = "Qup0"},
    {.Head = "Qup1"},
    {.Head = "Qup2"},
    {.Head = "Qdn0"},
    {.Head = "Qdn1"},
    {.Head = "Qdn2"},
    {.Head = "Rup"},
    {.Head = "Rdn"},
    {.Head = "Ref.Tab.FN"},
};

const ColumnSpec CrewTable[] = {
    {.Head = "Seat"},
    {.Head = "Side", .Choices = Sides},
    {.Head = "Name", .Most = TextLength},
    {.Head = "Rower ID", .Most = IDLength},
    {.Head = "Height (m)", .Field = "Height"},
    {.Head = "Weight (kg)", .Field = "Weight"},
    {.Head = "Coach", .Most = TextLength},
    {.Head = "Club", .Most = IDLength},
    {.Head = "Sex", .Most = 1, .Choices = Sexes},
    {.Head = "Weight Group", .Most = 1, .Choices = Weights},
    {.Head = "Birth Date"},
    {.Head = "Rowing Start Date"},
    {.Head = "Foot (mm)", .Field = "Foot", .Scale = Millimetres},
    {.Head = "Shank (mm)", .Field = "Shank", .Scale = Millimetres},
    {.Head = "Thigh (mm)", .Field = "Thigh", .Scale = Millimetres},
    {.Head = "Trunk (mm)", .Field = "Trunk", .Scale = Millimetres},
    {.Head = "Trunk Flex(mm)", .Field = "Trunk Flex", .Scale = Millimetres},
    {.Head = "Head (mm)", .Field = "Head", .Scale = Millimetres},
    {.Head = "Upper Arm (mm)", .Field = "Upper Arm", .Scale = Millimetres},
    {.Head = "Fore Arm (mm)", .Field = "Fore Arm", .Scale = Millimetres},
    {.Head = "Wrist (mm)", .Field = "Wrist", .Scale = Millimetres},
    {.Head = "Shoulders Width (mm)", .Field = "Shoulders Width", .Scale = Millimetres},
    {.Head = "Ankle Flexion (mm)", .Field = "Ankle Flexion", .Tip = "Degrees, whatever the head says."},
    {.Head = "Ankle Extension (mm)", .Field = "Ankle Extension", .Tip = "Degrees, whatever the head says."},
    {.Head = "Hips to seat (mm)", .Field = "Hips to seat", .Scale = Millimetres},
};

const ColumnSpec ViewTable[] = {
    {.Head = "Seat"},
    {.Head = "ID", .Most = IDLength},
    {.Head = "Mode", .Choices = RowModes},
    {.Head = "Oper", .Choices = Opers},
    {.Head = "Aver Mode", .Choices = AverModes},
    {.Head = "Color", .Tip = "Number in the colour table of the program.", .Choices = Colours, .Kind = eCell::Colour},
    {.Head = "Options"},
    {.Head = "Min X Par"},
    {.Head = "Max X Par"},
    {.Head = "Min Y Par"},
    {.Head = "Max Y Par"},
    {.Head = "X1", .Tip = "Left edge of the plot, percent."},
    {.Head = "X2", .Tip = "Top edge of the plot, percent."},
    {.Head = "Y1", .Tip = "Right edge of the plot, percent."},
    {.Head = "Y2", .Tip = "Bottom edge of the plot, percent."},
    {.Head = "Offset", .Tip = "Line of the caption."},
    {.Head = "Arguments", .Most = TextLength, .Tip = "ParamIDs with commas between them, the first one is X."},
    {.Head = "Functions", .Most = TextLength, .Tip = "Mod, MinX, MaxX, MinY, MaxY ... with commas between them."},
    {.Head = "Criteria", .Most = TextLength, .Tip = "The model's value for each key behind Mod."},
    {.Head = "Crit.STD", .Most = TextLength, .Tip = "The deviation for each key behind Mod."},
    {.Head = "Diam,Font,X,Y", .Most = TextLength},
};

const ColumnSpec AntroTable[] = {
    {.Head = "RowerID", .Most = IDLength, .Tip = "As in the crew's column Rower ID."},
    {.Head = "Date", .Tip = "The day of the measurements."},
    {.Head = "Height", .Tip = "Metres."},
    {.Head = "Weight", .Tip = "Kilograms."},
    {.Head = "Foot", .Tip = "Millimetres."},
    {.Head = "Shank", .Tip = "Millimetres."},
    {.Head = "Thigh", .Tip = "Millimetres."},
    {.Head = "Trunk", .Tip = "Millimetres."},
    {.Head = "TrunkBend", .Tip = "Millimetres."},
    {.Head = "Head", .Tip = "Millimetres."},
    {.Head = "UpArm", .Tip = "Millimetres."},
    {.Head = "ForeArm", .Tip = "Millimetres."},
    {.Head = "Wrist", .Tip = "Millimetres."},
    {.Head = "ShouldW", .Tip = "Millimetres."},
    {.Head = "AnkleFlex", .Tip = "Degrees."},
    {.Head = "AnkleExt", .Tip = "Degrees."},
    {.Head = "Hip_Seat", .Tip = "Millimetres."},
};

const ColumnSpec BoatTable[] = {
    {.Head = "Seat"},
    {.Head = "Side", .Choices = Sides},
    {.Head = "Oar Inboard (m)", .Field = "Oar Inboard"},
    {.Head = "Oar Length (m)", .Field = "Oar Length"},
    {.Head = "Blade Length (m)", .Field = "Blade Length"},
    {.Head = "Blade Area (cm2)", .Field = "Blade Area"},
    {.Head = "Oar Pitch R (deg)", .Field = "Oar Pitch R"},
    {.Head = "Oar Pitch L (deg)", .Field = "Oar Pitch L"},
    {.Head = "Oar CM/top (m)", .Field = "Oar CM/top"},
    {.Head = "Oar Mass (kg)", .Field = "Oar Mass"},
    {.Head = "X Foot Toes (mm)", .Field = "X Foot Toes"},
    {.Head = "X Seat (mm)", .Field = "X Seat"},
    {.Head = "Y Foot Toes (mm)", .Field = "Y Foot Toes"},
    {.Head = "Y Seat (mm)", .Field = "Y Seat"},
    {.Head = "Gate Height R(mm)", .Field = "Gate Height R"},
    {.Head = "Gate Height L(mm)", .Field = "Gate Height L"},
    {.Head = "Half Span"},
    {.Head = "Boat Width (mm)", .Field = "Boat Width"},
    {.Head = "Foot Width (mm)", .Field = "Foot Width"},
    {.Head = "Foot Size (mm)", .Field = "Foot Size"},
    {.Head = "Slides Length (mm)", .Field = "Slides Length"},
    {.Head = "Foot Angle (deg)", .Field = "Foot Angle"},
    {.Head = "Slides Angle (deg)", .Field = "Slides Angle"},
    {.Head = "Gate Pitch R0 (deg)", .Field = "Gate Pitch R0"},
    {.Head = "Gate Pitch R-90 (deg)", .Field = "Gate Pitch R-90"},
    {.Head = "Gate Pitch L0 (deg)", .Field = "Gate Pitch L0"},
    {.Head = "Gate Pitch L-90 (deg)", .Field = "Gate Pitch L-90"},
    {.Head = "Reserved"},
    {.Head = "Oar Type", .Most = TextLength},
    {.Head = "Comment", .Most = TextLength},
};

const ColumnSpec DescTable[] = {
    {.Head = "Sample ID", .Most = IDLength, .Tip = "The patterns of the sample go by it.", .IsKey = true},
    {.Head = "Par Count"},
    {.Head = "Data Count", .Tip = "The patterns of the sample have one value more than this."},
    {.Head = "Test Time", .Tip = "Seconds."},
    {.Head = "Stroke Count"},
    {.Head = "Bad Strokes"},
    {.Head = "Rate", .Tip = "Strokes per minute."},
    {.Head = "Rate Dev"},
    {.Head = "Start", .Tip = "Minutes."},
    {.Head = "Finish", .Tip = "Minutes."},
    {.Head = "Dist Real"},
    {.Head = "Comment", .Most = TextLength},
    {.Head = "Time Real"},
    {.Head = "RawFN", .Most = TextLength},
    {.Head = "PrimFN", .Most = TextLength},
    {.Head = "Video Str N"},
    {.Head = "Video FN", .Most = TextLength},
};

const ColumnSpec DotTable[] = {
    {.Head = "Point ID", .Most = IDLength, .IsKey = true},
    {.Head = "Point Name", .Most = TextLength},
    {.Head = "IsAngle", .Choices = Angles},
};

const ColumnSpec SegTable[] = {
    {.Head = "Segment ID", .Most = IDLength, .IsKey = true},
    {.Head = "Segment Name", .Most = TextLength},
    {.Head = "ID of Start point", .Most = IDLength},
    {.Head = "ID of End point", .Most = IDLength},
    {.Head = "Start point Number"},
    {.Head = "End point number"},
    {.Head = "X1"},
    {.Head = "Y1"},
    {.Head = "X2"},
    {.Head = "Y2"},
};
} // namespace

std::span<const ColumnSpec> CalibrColumns()
{
    return CalibrTable;
}

std::span<const ColumnSpec> CrewColumns()
{
    return CrewTable;
}

std::span<const ColumnSpec> ViewColumns()
{
    return ViewTable;
}

std::span<const ColumnSpec> AntroColumns()
{
    return AntroTable;
}

std::span<const ColumnSpec> BoatColumns()
{
    return BoatTable;
}

std::span<const ColumnSpec> DescColumns()
{
    return DescTable;
}

std::span<const ColumnSpec> DotColumns()
{
    return DotTable;
}

std::span<const ColumnSpec> SegColumns()
{
    return SegTable;
}
