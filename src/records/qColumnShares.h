// The widths of a grid's columns, as shares of its width that are kept in the settings.
#pragma once

#include <QSize>

#include <string>
#include <vector>

class QString;
class QTableView;
class qGridModel;

class qColumnShares
{
public:
    /// Sets up the heads of the columns, too.
    qColumnShares(QTableView& InitView, const qGridModel& InitRows);

    /// Under Prefix and the keys "ColW_00", "ColW_01" .... A column without a kept share gets room for its texts, and a
    /// part of what is to spare.
    void Restore(const std::string& Section, const std::string& Prefix);
    void Keep(const std::string& Section, const std::string& Prefix) const;

    /// Gives the columns their widths.
    void Apply();

private:
    int NeededWidth(int Column) const;
    QSize HeadRoom(const QString& Head, int Width) const;

    QTableView& View;
    const qGridModel& Rows;
    std::vector<double> Shares; // of the width, by column; 0 stands for a width of its own
    bool IsApplying = false;
};
