// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/PackedBody.h"

#include "dialect/DialectPage.h"

#include <atomic>
#include <exception>
#include <thread>

namespace sm::publisher {

namespace {

constexpr std::size_t kPartBytes = std::size_t{1} << 20; // a window of 32 KiB hardly sees the cut

class BodyPacker {
public:
    BodyPacker(const base::MappedFile& file, std::string_view body, std::size_t pictures)
        : m_file(file), m_pictures(pictures), m_parts(CutDialectBody(body, kPartBytes)), m_facts(m_parts.size()),
          m_packed(m_parts.size())
    {
    }

    bool Run(Deflater& own)
    {
        const std::size_t most = m_parts.size() < 2 ? 1 : std::max(1U, std::thread::hardware_concurrency());
        {
            std::vector<std::jthread> others;
            for (std::size_t i = 1; i < std::min(most, m_parts.size()); ++i) {
                others.emplace_back([this] { WorkBeside(); });
            }
            Work(own);
        }
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        return !m_stop && StatesMatch();
    }
    PackedDialectBody Take()
    {
        PackedDialectBody packed{std::move(m_packed), {}, {}};
        for (BodyFacts& facts : m_facts) {
            packed.layers.merge(facts.layers);
            packed.opacities.merge(facts.opacities);
        }
        return packed;
    }

private:
    void WorkBeside() noexcept
    {
        try {
            Deflater deflater;
            Work(deflater);
        } catch (...) { // the others do its part
        }
    }
    void Work(Deflater& deflater) noexcept
    {
        try {
            for (std::size_t i = m_next++; i < m_parts.size() && !m_stop; i = m_next++) {
                const auto facts = CheckDialectBody(m_parts[i], m_pictures);
                if (!facts) {
                    m_stop = true;
                    return;
                }
                m_facts[i] = *facts;
                m_packed[i] = deflater.Pack(m_parts[i]);
                m_file.Forget(m_parts[i]);
            }
        } catch (...) {
            if (!m_stop.exchange(true)) {
                m_failure = std::current_exception();
            }
        }
    }

    /// Every graphics state that is restored was saved, across the parts; and there is one layer at a time.
    bool StatesMatch() const
    {
        std::int32_t depth = 0, layers = 0;
        for (const BodyFacts& facts : m_facts) {
            if (depth + facts.lowest < 0 || layers + facts.lowestLayer < 0 || layers + facts.highestLayer > 1) {
                return false;
            }
            depth += facts.depth;
            layers += facts.layerDepth;
        }
        return depth == 0 && layers == 0;
    }

    const base::MappedFile& m_file;
    std::size_t m_pictures;
    std::vector<std::string_view> m_parts;
    std::vector<BodyFacts> m_facts;
    std::vector<std::shared_ptr<Buffer>> m_packed;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_stop = false;
    std::exception_ptr m_failure;
};

} // namespace

std::optional<PackedDialectBody> PackDialectBody(const base::MappedFile& file, std::string_view body,
                                                 std::size_t pictures, Deflater& deflater)
{
    BodyPacker packer(file, body, pictures);
    if (!packer.Run(deflater)) {
        return std::nullopt;
    }
    return packer.Take();
}

} // namespace sm::publisher
