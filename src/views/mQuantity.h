// What is measured along the axes of a derived variable: its name and its unit, by the names of the channels.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// Either may be empty, when it is not known.
struct Quantity
{
    std::string Name;
    std::string Unit;

    bool operator==(const Quantity&) const = default;
};

/// "Name, unit", or the one that is known.
std::string AxisText(const Quantity& What);

/// Unit of a channel's values, empty when it is not known.
std::string ChannelUnit(const std::string& ParamID);

/// The quantity that a row puts on its X axis; nothing is known of a row over the sample position.
Quantity QuantityX(const ViewRow& Row);

/// The quantity of a row's curve as the report computes it.
Quantity QuantityY(const ViewRow& Row);

/// The common quantity of curves that share an axis: a name that they do not share becomes one for the unit.
Quantity Common(const Quantity& First, const Quantity& Second);
