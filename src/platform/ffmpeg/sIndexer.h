// Makes the index of a clip in a thread of its own.
#pragma once

#include "platform/ffmpeg/sClipTable.h"
#include "platform/ffmpeg/sReader.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

class sIndexer
{
public:
    ~sIndexer() { Stop(); }

    /// Begins with a clip.
    void Start(const std::string& Path);

    /// Gives up what is not done.
    void Stop();

    /// Share that is done, 0 to 1.
    double Done() const { return IsDone ? 1 : Share.load(); }

    void Wait();

    /// The whole index, null while it is being made. It stays when the indexer stops.
    std::shared_ptr<const sClipTable> Table() const { return IsDone ? Made : nullptr; }

private:
    void Make(const std::string& Path);
    bool ReadAll(const std::string& Path, sClipTable& Into);
    bool DecodeAll(const std::string& Path, sClipTable& Into);
    std::vector<int32_t> MissingAhead(const std::string& Path, const sClipTable& Read) const;
    std::vector<int32_t> MissingAtEnd(const std::string& Path, const sClipTable& Read) const;

    std::thread Work;
    std::atomic<bool> IsStopped = false;
    std::atomic<bool> IsDone = false;
    std::atomic<double> Share = 0;
    std::shared_ptr<const sClipTable> Made; // written before IsDone
};

/// Seconds of a unit of the stream's time stamps, and of a picture by what the file says of its rate.
double BaseOf(const sDemuxer& File);
double UsualStep(const sDemuxer& File);
