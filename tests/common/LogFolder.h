// A log directory of a test's own.
#pragma once

#include "TestFolder.h"

#include <string>

/// An empty folder that QPTOOLS_LOG_DIR names: logs are written there while the object lives. Deleted with
/// it.
class LogFolder
{
public:
    LogFolder() : m_variable(L"QPTOOLS_LOG_DIR", m_folder.Path().wstring()) {}

    const std::filesystem::path& Path() const { return m_folder.Path(); }

    /// The bytes of a log; empty if there is none.
    std::string Bytes(const char* file = "UserActions.log") const { return ReadBytes(Path() / file); }

    /// The log book, in which failures are noted; empty if there is none.
    std::string Book() const { return Bytes("logbook.log"); }

private:
    TestFolder m_folder;
    TestVariable m_variable;
};
