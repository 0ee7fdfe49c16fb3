#include "publisher/StreamCompression.h"

#include "publisher/Qpdf.h"

#include <algorithm>
#include <cstring>
#include <libdeflate.h>
#include <memory>
#include <new>
#include <thread>
#include <vector>

namespace sm::publisher {

namespace {

constexpr int kLevel = 1; // twice as fast as level 6 for a few percent of size
constexpr std::size_t kWorthIt = 64;
constexpr std::size_t kBatchBytes = std::size_t{32} << 20;
constexpr std::size_t kWorthAThread = std::size_t{1} << 19;

struct Job {
    QPDFObjectHandle stream;
    std::shared_ptr<Buffer> raw;
    std::shared_ptr<Buffer> packed;
};

class Deflater {
public:
    Deflater() : m_compressor(libdeflate_alloc_compressor(kLevel))
    {
        if (m_compressor == nullptr) {
            throw std::bad_alloc();
        }
    }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;
    ~Deflater() { libdeflate_free_compressor(m_compressor); }

    void Pack(Job& job)
    {
        const std::size_t size = job.raw->getSize();
        std::vector<unsigned char> packed(size); // what doesn't fit hasn't become smaller
        const std::size_t packedSize =
            libdeflate_zlib_compress(m_compressor, job.raw->getBuffer(), size, packed.data(), packed.size());
        if (packedSize > 0) {
            job.packed = std::make_shared<Buffer>(packedSize);
            std::memcpy(job.packed->getBuffer(), packed.data(), packedSize);
        }
    }

private:
    libdeflate_compressor* m_compressor;
};

void PackEvery(std::vector<Job>& jobs, std::size_t first, std::size_t step)
{
    Deflater deflater;
    for (std::size_t i = first; i < jobs.size(); i += step) {
        deflater.Pack(jobs[i]);
    }
}

void PackBatch(std::vector<Job>& jobs, std::size_t bytes)
{
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t threads = std::min({cores, jobs.size(), bytes / kWorthAThread + 1});
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
