// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/StreamCompression.h"

#include "pdf/Deflater.h"

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

namespace sm::publisher {

namespace {

constexpr std::size_t kWorthIt = 64;
constexpr std::size_t kBatchBytes = std::size_t{32} << 20;
constexpr std::size_t kWorthAThread = std::size_t{1} << 19;

struct Job {
    QPDFObjectHandle stream;
    std::shared_ptr<Buffer> raw;
    std::shared_ptr<Buffer> packed;
};

void PackEvery(std::vector<Job>& jobs, std::size_t first, std::size_t step)
{
    Deflater deflater;
    for (std::size_t i = first; i < jobs.size(); i += step) {
        const Buffer& raw = *jobs[i].raw;
        auto packed = deflater.Pack({reinterpret_cast<const char*>(raw.getBuffer()), raw.getSize()});
        if (packed->getSize() < raw.getSize()) {
            jobs[i].packed = std::move(packed);
        }
    }
}

void PackBatch(std::vector<Job>& jobs, std::size_t bytes)
{
    const std::size_t most = std::min(jobs.size(), bytes / kWorthAThread + 1);
    const std::size_t threads =
        most < 2 ? most : std::min<std::size_t>(most, std::max(1U, std::thread::hardware_concurrency()));
    {
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < threads; ++i) {
            others.emplace_back([&jobs, i, threads] { PackEvery(jobs, i, threads); });
        }
        PackEvery(jobs, 0, threads);
    }
    for (Job& job : jobs) {
        if (job.packed) {
            job.stream.replaceStreamData(job.packed, QPDFObjectHandle::newName("/FlateDecode"),
                                         QPDFObjectHandle::newNull());
        }
    }
    jobs.clear();
}

} // namespace

void CompressStreams(QPDF& pdf)
{
    std::vector<Job> jobs;
    std::size_t bytes = 0;
    for (QPDFObjectHandle& object : pdf.getAllObjects()) {
        if (!object.isStream() || object.getDict().hasKey("/Filter")) {
            continue;
        }
        auto raw = object.getRawStreamData();
        if (raw->getSize() < kWorthIt) {
            continue;
        }
        bytes += raw->getSize();
        jobs.push_back({object, std::move(raw), nullptr});
        if (bytes >= kBatchBytes) {
            PackBatch(jobs, bytes);
            bytes = 0;
        }
    }
    PackBatch(jobs, bytes);
}

} // namespace sm::publisher
