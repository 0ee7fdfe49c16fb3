// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion log: a text file in UTF-8 that is whole after every line, whatever ends the program.
#pragma once

#include "base/files/File.h"
#include "ports/IDesktop.h"
#include "ports/IPubDoc.h"
#include "publisher/Publisher.h"

#include <string>

namespace sm::publisher {

class ConversionLog : public IConversionLog {
public:
    ConversionLog(const PublisherOptions& options, IDesktop& desktop);
    ConversionLog(const ConversionLog&) = delete;
    ConversionLog& operator=(const ConversionLog&) = delete;
    ~ConversionLog() override;

    /// Begins the file anew with a line of `applicationTitle` and the date and time. A process that still writes the
    /// previous file goes on with that one, which no longer has a name. Throws HostError.
    void OpenLog(const std::string& fileName, const std::string& applicationTitle) override;
    /// Line ends inside `text` become blanks. Without an open log nothing happens. Throws HostError.
    void WriteLogLine(const std::string& text) override;
    void CloseLog() override;
    bool ShowLogFile(const std::string& fileName) override;

private:
    [[nodiscard]] std::string PathOf(const std::string& fileName) const;
    void Write(const std::string& text);

    PublisherOptions m_options;
    IDesktop& m_desktop;
    std::string m_path;
    base::File m_file;
};

} // namespace sm::publisher
