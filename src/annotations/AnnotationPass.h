// The plug-in's annotation pass, as the plot loop asks for it.
#pragma once

#include "annotations/mdlAcadPdfMarks.h"
#include "ports/IAnnotations.h"

#include <functional>
#include <string>

namespace sm {

class AnnotationPass final : public IAnnotations {
public:
    /// `context` gives the call's context once a conversion runs; `say`, which may be empty, hears of a sheet whose
    /// annotations are not all on the page.
    AnnotationPass(std::function<CallContext&()> context, std::function<void(const std::string&)> say)
        : m_context(std::move(context)), m_say(std::move(say))
    {
    }

    bool AddPdfMarks(IPubDoc& pubDoc, IAcadDocument& document, const TransferFlags& transfer, bool quiet) override
    {
        const bool added = sm::AddPdfMarks(m_context(), m_names, pubDoc, document, transfer, quiet);
        if (!added && m_say)
            m_say("some annotations of a sheet could not be added; \"sheetmaker log\" says which");
        return added;
    }

    /// Blocks are counted from 1 again: for each sheet that is no part of a whole conversion.
    void ForgetBlockNames() { m_names = BlockNames(); }

private:
    std::function<CallContext&()> m_context;
    std::function<void(const std::string&)> m_say;
    BlockNames m_names; ///< runs on over the sheets of the drawing
};

} // namespace sm
