// Conditioning of the sample store before strokes are cut: the time column starts at zero, spikes are repaired.
#pragma once

/// Shifts the times so that the first one above 0 becomes 0; the last row keeps its time. False when the recording is
/// too short.
bool ZeroTime();

/// Replaces samples outside a channel's Min and Max, and single samples that jump away from both neighbours by more
/// than StdFilter deviations of the steps plus the mean step, by the mean of their neighbours; a repaired sample is the
/// left neighbour of the next. The first and the last sample stay. False when the recording is too short. Throws
/// RunError, before anything is changed, when a channel has no row.
bool SpikeFilter();
