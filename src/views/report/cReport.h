// A report: the rows of View3 computed from samples, from the typical pattern or from a stored sample, with what stands
// at the head of its page. It keeps all that it shows, whatever becomes of the session.
#pragma once

#include "views/report/cData03report.h"

#include <string>
#include <utility>
#include <vector>

/// A row's functions: what it is called, what it measures and its values.
struct ReportLine
{
    std::string ID;
    Quantity X;
    Quantity Y;
    std::vector<RowValue> Values;
};

/// Value of a function as the report writes it, without unit: three digits or what centimetres, newtons and degrees
/// ask for; a dash for a key that names no function.
std::string ValueText(const RowValue& Value);

/// Unit of a function's value: that of the axis which its key ends with.
std::string ValueUnit(const ReportLine& Line, const RowValue& Value);

class cReport
{
public:
    /// Computes all rows. Kind is a set of ReportKind bits, Sample a row of gFile.Desc (0: none), First and Last the
    /// samples of a primary report. A row that cannot be computed is left out and named in Notes. Throws RunError for
    /// a stored sample that is not there or does not fit.
    void InitData(int Kind, int16_t Sample, int32_t First, int32_t Last);

    /// Fits the rows into Area.
    void SetDrawScale(const PlotRect& Area, double Pixel);

    /// Draws the curves: those of the typical pattern, then the dots of the samples on top.
    void DrawData(iSurface& Surface) const;

    /// The rows that are shown, typical ones first.
    std::vector<const cData03report*> Shown() const;

    /// The functions of the typical rows that have any.
    std::vector<ReportLine> PrintReport() const;

    std::string Title;   // the sample
    std::string Session; // where and what was rowed
    std::string Crew;    // seats and names
    std::string Comment;
    std::vector<std::pair<std::string, std::string>> Facts; // label and value
    std::vector<std::string> Notes;                         // what could not be shown, and why
    double TimeStep = 0;                                    // s, stroke time

private:
    void MakeObjects(std::vector<cData03report>& Objs, int ObjKind, int32_t First, int32_t Last);
    void MakeHead(const DescRow& Sample, int Kind, int32_t First, int32_t Last);
    void CheckColumns(const DescRow& Sample);
    bool HasArguments(const std::string& What, const ViewRow& Row);
    void CheckArguments(const std::string& What, const ViewRow& Row);

    std::vector<cData03report> PrimObjs;
    std::vector<cData03report> NormObjs;
};
