// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/ContainerBuilder.h"

namespace sm::drawing::dwg {

bool Container::HasLongSizes() const
{
    return m_facts.release >= Release::R2018 || (m_facts.release >= Release::R2010 && m_facts.maintenance > 3);
}

Container Container::Open(std::string_view bytes, const std::string& path, FindingList& findings)
{
    ContainerBuilder builder(bytes, path, findings);
    if (builder.Facts().release <= Release::R2000)
        OpenSections(builder);
    else if (builder.Facts().release == Release::R2007)
        OpenCodedPages(builder);
    else
        OpenPages(builder);
    return builder.Finish();
}

} // namespace sm::drawing::dwg
