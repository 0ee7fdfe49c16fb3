// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/WorkerCommand.h"

#include "base/process/Memory.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commands/ConvertCommand.h"
#include "commands/PublishCommand.h"
#include "workers/TaskText.h"
#include "workers/WorkerProcess.h"

#include <istream>
#include <iterator>
#include <ostream>

namespace sm::app {
namespace {

DrawingReport Publish(const PublishJob& job, DrawingTask task, const Install& install, terminal::Console& console)
{
    task.options = job.options;
    return MakeSet(job, task, ParseSetParts(task.sheets), install, console);
}

DrawingReport Convert(const ConvertJob& job, DrawingTask task, const Install& install, terminal::Console& console)
{
    task.options = job.options;
    const auto work = [&install](const DrawingTask& one, terminal::Console& told) {
        return ConvertDrawing(one, install, told);
    };
    return Refusing(work)(task, console);
}

} // namespace

int RunWorker(const Job& job, const Install& install, std::istream& in, std::ostream& out, std::ostream& err)
{
    base::EndWithoutMemory(kEndedWithoutMemory);
    try {
        const DrawingTask task = TaskFromText({std::istreambuf_iterator<char>(in), {}});
        DrawingReport report;
        {
            terminal::Console console(err, base::IsTerminal(base::Stream::Errors));
            if (const auto* const convert = std::get_if<ConvertJob>(&job))
                report = Convert(*convert, task, install, console);
            else
                report = Publish(std::get<PublishJob>(job), task, install, console);
        }
        out << ToJson(report, -1) << std::flush;
        return out ? kExitDone : kExitFailed;
    } catch (const std::exception& error) {
        err << "sheetmaker: " << error.what() << "\n";
        return kExitFailed;
    }
}

} // namespace sm::app
