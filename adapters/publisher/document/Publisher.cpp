// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/Publisher.h"

#include "dialect/DialectPageMaker.h"
#include "document/ConversionLog.h"
#include "document/PubDoc.h"
#include "pages/GhostscriptPageMaker.h"

namespace sm::publisher {

namespace {

class Publisher : public IPublishingLibrary {
public:
    Publisher(const PublisherOptions& options, IDesktop& desktop) : m_options(options), m_desktop(desktop) {}

    std::shared_ptr<IPubDoc> CreatePubDoc() override
    {
        return std::make_shared<PubDoc>(
            m_options, m_desktop,
            CreateDialectPageMaker(
                CreateGhostscriptPageMaker({m_options.interpreter, m_options.deadline, m_options.deadlinePerMegabyte}),
                m_options.observer.note));
    }

    std::shared_ptr<IConversionLog> CreateConversionLog() override
    {
        return std::make_shared<ConversionLog>(m_options, m_desktop);
    }

private:
    PublisherOptions m_options;
    IDesktop& m_desktop;
};

} // namespace

std::unique_ptr<IPublishingLibrary> CreatePublisher(const PublisherOptions& options, IDesktop& desktop)
{
    return std::make_unique<Publisher>(options, desktop);
}

} // namespace sm::publisher
