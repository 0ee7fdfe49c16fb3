// SPDX-License-Identifier: GPL-3.0-or-later
// The publishing library's two objects.
#include "windows/testhost/Members.h"

#include <array>

namespace sm::testhost {
namespace {

OwnedVariant AddAttachment(IPubDoc& port, Invocation& call)
{
    bool added = false;
    const std::int32_t status =
        port.AddAttachmentMark(call.Integer(0), call.Number(1), call.Number(2), call.Text(3), added);
    call.Answer(4, Answer(added));
    return Answer(status);
}

OwnedVariant AddStamp(IPubDoc& port, Invocation& call)
{
    return Answer(port.AddTextStampMark(call.Integer(0), call.Number(1), call.Number(2), call.Text(3), call.Text(4),
                                        call.Integer(5), call.Integer(6), call.Integer(7)));
}

OwnedVariant Save(IPubDoc& port, Invocation& call)
{
    return Answer(port.SaveToPdf(call.Text(0), call.Integer(1), call.Boolean(2), call.Boolean(3),
                                 call.IsGiven(4) ? call.Integer(4) : 0));
}

} // namespace

ComRef<IDispatch> Offer(const std::shared_ptr<IPubDoc>& pubDoc)
{
    using Port = IPubDoc;
    static const auto kMembers = std::to_array<Member<Port>>({
        {"AddPsFile", kRead, 6, 6,
         [](Port& port, Invocation& call) {
             return Answer(port.AddPsFile(call.Text(0), call.Number(1), call.Number(2), call.Integer(3),
                                          call.Integer(4), call.Text(5)));
         }},
        SM_READ(NewPsFileName),
        {"AddTextStampMark", kRead, 8, 8, AddStamp},
        {"AddSignatureFieldMark", kRead, 7, 7,
         [](Port& port, Invocation& call) {
             return Answer(port.AddSignatureFieldMark(call.Integer(0), call.Number(1), call.Number(2), call.Number(3),
                                                      call.Number(4), call.Text(5), call.Text(6)));
         }},
        {"AddAttachmentMark", kRead, 5, 5, AddAttachment},
        {"AddLinkMark", kRead, 6, 6,
         [](Port& port, Invocation& call) {
             return Answer(port.AddLinkMark(call.Integer(0), call.Number(1), call.Number(2), call.Number(3),
                                            call.Number(4), call.Text(5)));
         }},
        {"AddPropertyMark", kRead, 3, 3,
         [](Port& port, Invocation& call) {
             return Answer(port.AddPropertyMark(call.Integer(0), call.Text(1), call.Text(2)));
         }},
        SM_READ(PendingMarkCount),
        {"DiscardPendingMarks", kRead, 0, 0,
         [](Port& port, Invocation&) {
             port.DiscardPendingMarks();
             return OwnedVariant();
         }},
        {"SetDocInfo", kRead, 2, 2,
         [](Port& port, Invocation& call) {
             port.SetDocInfo(call.Text(0), call.Text(1));
             return OwnedVariant();
         }},
        {"PromptForPdfName", kRead, 3, 3,
         [](Port& port, Invocation& call) {
             return Answer(port.PromptForPdfName(call.Text(0), call.Integer(1), call.Text(2)));
         }},
        {"SaveToPdf", kRead, 5, 5, Save},
        {"SetDocSummary", kRead, 4, 4,
         [](Port& port, Invocation& call) {
             port.SetDocSummary(call.Text(0), call.Text(1), windows::ToDate(call.Raw(2)), windows::ToDate(call.Raw(3)));
             return OwnedVariant();
         }},
        SM_READ(LastErrorText),
    });
    return OfferPort<Port>(pubDoc, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IConversionLog>& log)
{
    using Port = IConversionLog;
    static const auto kMembers = std::to_array<Member<Port>>({
        {"OpenLog", kRead, 2, 2,
         [](Port& port, Invocation& call) {
             port.OpenLog(call.Text(0), call.Text(1));
             return OwnedVariant();
         }},
        {"WriteLogLine", kRead, 1, 1,
         [](Port& port, Invocation& call) {
             port.WriteLogLine(call.Text(0));
             return OwnedVariant();
         }},
        {"CloseLog", kRead, 0, 0,
         [](Port& port, Invocation&) {
             port.CloseLog();
             return OwnedVariant();
         }},
        {"ShowLogFile", kRead, 1, 1,
         [](Port& port, Invocation& call) { return Answer(port.ShowLogFile(call.Text(0))); }},
    });
    return OfferPort<Port>(log, kMembers);
}

} // namespace sm::testhost
