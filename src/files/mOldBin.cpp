// Old sample files: a head of 800 bytes, then the samples one after another, all numbers little-endian.
#include "files/mOldBin.h"

#include "core/mGlobData.h"
#include "platform/mHost.h"

#include <array>
#include <bit>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

namespace {
constexpr std::size_t HeadSize = 800;
constexpr std::size_t LastSampleAt = 12;
constexpr std::size_t RawStartAt = 16;
constexpr std::size_t RawStopAt = 24;

using OldHead = std::array<char, HeadSize>;

template <class Number>
Number NumberAt(const OldHead& Head, std::size_t Offset)
{
    static_assert(std::endian::native == std::endian::little);
    Number X{};
    std::memcpy(&X, Head.data() + Offset, sizeof X);
    return X;
}

// Whether a file of that size holds all samples 0 to LastSample; anything after them is ignored.
bool IsComplete(int64_t FileSize, int64_t LastSample)
{
    if (gFile.ChanCnt < 0 || LastSample < -1 || LastSample > SampleStore::MaxIndex) return false;
    const int64_t Values = (int64_t{gFile.ChanCnt} + 1) * (LastSample + 1);
    return FileSize >= int64_t{HeadSize} + int64_t{sizeof(double)} * Values;
}

SampleStore ReadSamples(std::istream& File, int LastSample)
{
    SampleStore Store;
    Store.Create(gFile.ChanCnt, LastSample);
    std::vector<double> Row(static_cast<std::size_t>(gFile.ChanCnt) + 1);
    for (int Sample = 0; Sample <= LastSample; ++Sample) {
        File.read(reinterpret_cast<char*>(Row.data()), static_cast<std::streamsize>(Row.size() * sizeof(double)));
        for (std::size_t Chan = 0; Chan < Row.size(); ++Chan)
            Store(static_cast<int>(Chan), Sample) = Row[Chan];
    }
    return Store;
}
} // namespace

bool ReadOldFile(const std::string& Path)
{
    std::error_code Error;
    const auto Size = std::filesystem::file_size(Path, Error);
    std::ifstream File(Path, std::ios::binary);
    if (Error || !File) return FileFailed(CantOpen, Path, TitleError);
    OldHead Head{};
    File.read(Head.data(), HeadSize);
    const auto LastSample = NumberAt<int32_t>(Head, LastSampleAt);
    const bool Whole = File && IsComplete(static_cast<int64_t>(Size), LastSample);
    SampleStore Store = Whole ? ReadSamples(File, LastSample) : SampleStore{};
    if (!Whole || !File) {
        MsgBox("No old sample file with the channels of this session: " + Path, TitleError);
        return false;
    }
    gRaw = std::move(Store);
    gRawStart = NumberAt<double>(Head, RawStartAt);
    gRawStop = NumberAt<double>(Head, RawStopAt);
    return true;
}
