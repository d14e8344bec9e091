// Why settings cannot be used where that depends on the session, on the machine or on other settings. Each gives an
// empty text when what is shown can be used.
#pragma once

#include <string>

class cOptions;
struct OptionItem;

std::string ModelFault(const cOptions& Shown, const OptionItem& Item);
std::string SlavesFault(const cOptions& Shown, const OptionItem& Item);
std::string KeyChanFault(const cOptions& Shown, const OptionItem& Item);
std::string ThresholdFault(const cOptions& Shown, const OptionItem& Item);
std::string PortFault(const cOptions& Shown, const OptionItem& Item);
std::string AddressFault(const cOptions& Shown, const OptionItem& Item);
std::string FileFault(const cOptions& Shown, const OptionItem& Item);
std::string DeviationsFault(const cOptions& Shown, const OptionItem& Item);
std::string SplitFault(const cOptions& Shown, const OptionItem& Item);
std::string SpeedFault(const cOptions& Shown, const OptionItem& Item);
std::string PieceFault(const cOptions& Shown, const OptionItem& Item);
std::string CalibratorFault(const cOptions& Shown, const OptionItem& Item);
std::string SensorFault(const cOptions& Shown, const OptionItem& Item);
std::string PanelChanFault(const cOptions& Shown, const OptionItem& Item);
std::string PercentFault(const cOptions& Shown, const OptionItem& Item);
std::string TravelFault(const cOptions& Shown, const OptionItem& Item);
std::string ZoneFault(const cOptions& Shown, const OptionItem& Item);
std::string ColourFault(const cOptions& Shown, const OptionItem& Item);
