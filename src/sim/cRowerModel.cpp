// Which signal a channel's name stands for.
#include "sim/cRowerModel.h"

#include "base/mNumText.h"
#include "sim/cErgRower.h"

namespace {
constexpr int RightScull = 3;

// Number behind the letter of a name such as "A1"; 0 when the name is no letter with a number.
int NumberIn(const std::string& ParamID)
{
    const bool HasNumber = ParamID.size() > 1 && ParamID.find_first_not_of("0123456789", 1) == std::string::npos;
    return HasNumber ? static_cast<int>(Val(ParamID.substr(1, 4))) : 0;
}
} // namespace

cRowerModel::cRowerModel(const std::string& BoatType, double Rate_, double Spread, int KeyMode, uint64_t Seed_)
    : IsScullBoat(BoatType.ends_with('x')), OnErg(BoatType == ErgBoatType), Rate(Rate_), Seed(Seed_),
      Crew(Rate, Spread, KeyMode, Seed), Hull(BoatType, Rate, Crew)
{
}

const std::vector<cRowerModel::HullSensor>& cRowerModel::HullSensors()
{
    static const std::vector<HullSensor> Table = {
        {"Acc", &cHull::Acceleration, 1.5}, {"AccY", &cHull::Sway, 1.5},   {"AccZ", &cHull::Heave, 1.5},
        {"Roll", &cHull::Roll, 1.5},        {"Pitch", &cHull::Pitch, 1.5}, {"Yaw", &cHull::Yaw, 1.5},
        {"Vs", &cHull::Speed, 1},           {"Dist", &cHull::Distance, 0}, {"Lat", &cHull::Latitude, 0},
        {"Lon", &cHull::Longitude, 0},
    };
    return Table;
}

Oar cRowerModel::OarOf(const CalibrRow& Row) const
{
    const int Seat = Row.Seat > 0 ? Row.Seat : NumberIn(Row.ParamID);
    return MakeOar(Seed, Seat, Row.Side, IsScullBoat || Row.Side >= RightScull, Rate);
}

Sensor cRowerModel::SensorOf(const CalibrRow& Row)
{
    for (const HullSensor& Each : HullSensors())
        if (Row.ParamID == Each.ParamID)
            return {[this, Signal = Each.Signal](double T) { return (Hull.*Signal)(T); }, Each.Noise};
    if (NumberIn(Row.ParamID) < 1) return {};
    return OnErg ? ErgSensor(Row.ParamID[0], OarOf(Row)) : SeatSensor(Row.ParamID[0], OarOf(Row));
}

Sensor cRowerModel::SeatSensor(char Kind, const Oar& Each)
{
    const auto PhaseAt = [this, Lag = Each.Lag](double T) { return Crew.PhaseAt(T - Lag); };
    switch (Kind) {
    case 'A': // the least noise: the turns of the oar are read from neighbouring counts
        return {[=](double T) { return OarAngle(Each, PhaseAt(T)); }, 0.2};
    case 'V':
        return {[=](double T) { return VerticalAngle(PhaseAt(T)); }, 0.6};
    case 'H':
        return {[=](double T) { return HandleForce(Each, PhaseAt(T)); }, 1.2};
    case 'G':
        return {[=](double T) { return GateForce(Each, PhaseAt(T)); }, 1.2};
    case 'S':
        return {[=](double T) { return SeatPosition(Each, PhaseAt(T + SeatLead)); }, 0.5};
    case 'T':
        return {[=](double T) { return TrunkAngle(Each, PhaseAt(T + TrunkLead)); }, 0.6};
    default:
        return {};
    }
}

Sensor cRowerModel::ErgSensor(char Kind, const Oar& Each)
{
    const auto PhaseAt = [this, Lag = Each.Lag](double T) { return Crew.PhaseAt(T - Lag); };
    switch (Kind) {
    case 'L': // the least noise, as of an oar's angle
        return {[=](double T) { return ErgHandle(Each, PhaseAt(T)); }, 0.2};
    case 'H':
        return {[=](double T) { return ErgForce(Each, PhaseAt(T)); }, 1.2};
    case 'S':
        return {[=](double T) { return ErgSeat(Each, PhaseAt(T + SeatLead)); }, 0.2};
    case 'T':
        return {[=](double T) { return ErgTrunk(Each, PhaseAt(T + TrunkLead)); }, 0.2};
    default:
        return {};
    }
}
