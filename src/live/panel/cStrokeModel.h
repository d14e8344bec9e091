// The stroke model of a live row: the samples of the running stroke, and how the stroke scores against its targets.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

/// What a stroke was measured to be. The first four are those of a force model, the others of an acceleration model.
struct StrokeMeasures
{
    double U1 = 0;      // part of the drive from the catch until the force is up
    double U2 = 0;      // part of the drive with the force up
    double D3 = 0;      // part of the drive from where the force is down until the finish
    double Angle = 0;   // from catch to finish
    double LowestY = 0; // of the whole stroke
    double Peak = 0;    // behind the lowest value
    double Rise = 0;    // from the lowest value to the peak
};

class cStrokeModel
{
public:
    /// Samples that a stroke can have.
    static constexpr int Room = 256;

    /// Adds a sample; those beyond the room are counted only.
    void Take(double A, double Y);

    /// A new stroke begins.
    void Reset() { ModCnt = 0; }

    /// Measures of the stroke's force Y against its angle A. Nothing for a stroke of fewer than ten samples, one that
    /// ran out of room, or one without catch, finish or force.
    std::optional<StrokeMeasures> MeasureForce() const;

    /// Measures of the stroke's acceleration Y at a rate in strokes per minute, samples TimeStep seconds apart.
    /// Nothing for a stroke of fewer than ten samples or one that ran out of room.
    std::optional<StrokeMeasures> MeasureAcceleration(double Rate, double TimeStep) const;

private:
    // Sample indices and extremes of a stroke; 0 where there is no such sample.
    struct Turns
    {
        int Catch = 0;
        int Finish = 0;
        int Lowest = 0;
        double LowestY = 100000;
        double HighestY = -100000;
    };

    std::optional<Turns> FindTurns() const;
    bool IsCatch(int i) const;
    bool IsFinish(int i) const;
    std::optional<double> CrossingBefore(int i, double Level) const;
    double A(int i) const { return ModX[static_cast<std::size_t>(i)]; }
    double Y(int i) const { return ModY[static_cast<std::size_t>(i)]; }

    std::array<double, Room> ModX{};
    std::array<double, Room> ModY{};
    int16_t ModCnt = 0;
};

/// What a stroke should be: the value and the standard deviation of one key, where the row gives them.
struct ModelTarget
{
    std::optional<double> Value;
    std::optional<double> Deviation;
};

/// Score of an unknown key.
inline constexpr double NoScore = -1;

/// Score of a key against its target: 5 on the target, 1.667 for each deviation. NoScore for an unknown key; nothing
/// when the target is missing or its deviation is 0.
std::optional<double> ModelScore(const std::string& Key, const StrokeMeasures& Stroke, const ModelTarget& Target,
                                 double Rate);
