#pragma once

#include "app/Host.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A fresh host without a window, with a preferences folder of its own, that remembers what it said.
class HostFixture : public testing::Test {
protected:
    struct Line {
        kernel::Severity severity;
        std::string text;
    };

    HostFixture()
    {
        app::HostOptions options;
        options.prefsDir = m_prefs.path().toStdString();
        m_host = std::make_unique<app::Host>(options);
        session().output.addListener([this](kernel::Severity severity, const std::string& text) {
            m_lines.push_back({severity, text});
        });
    }

    app::Host& host() { return *m_host; }
    kernel::Session& session() { return m_host->session(); }
    QString prefsDir() const { return m_prefs.path(); }

    bool run(const std::string& text) { return m_host->run(text); }
    kernel::Value evaluate(const std::string& text) { return m_host->evaluate(text); }

    const std::vector<Line>& lines() const { return m_lines; }
    std::vector<std::string> errors() const { return said(kernel::Severity::Error); }
    std::vector<std::string> warnings() const { return said(kernel::Severity::Warning); }
    std::vector<std::string> said(kernel::Severity severity) const
    {
        std::vector<std::string> texts;
        for (const Line& line : m_lines) {
            if (line.severity == severity) {
                texts.push_back(line.text);
            }
        }
        return texts;
    }
    void forgetLines() { m_lines.clear(); }

private:
    QTemporaryDir m_prefs;
    std::vector<Line> m_lines;
    std::unique_ptr<app::Host> m_host;  // last: it speaks while it ends
};
