// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Database.h"

#include <cctype>
#include <sqlite3.h>

namespace sm::store {
namespace {

constexpr int kBusyMilliseconds = 15000;

[[noreturn]] void Fail(sqlite3* handle, int code)
{
    const std::string message = handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    throw DatabaseError(code & 0xff, message);
}

/// As a path stands in an address.
std::string Escaped(const std::string& path)
{
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = std::isalnum(byte) != 0 || c == '/' || c == '.' || c == '-' || c == '_';
        text += plain ? std::string(1, c) : std::string{'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
    }
    return text;
}

} // namespace

bool DatabaseError::MeansDamage() const
{
    return m_code == SQLITE_CORRUPT || m_code == SQLITE_NOTADB;
}

bool DatabaseError::MeansNoWriting() const
{
    return m_code == SQLITE_CANTOPEN || m_code == SQLITE_READONLY || m_code == SQLITE_IOERR || m_code == SQLITE_FULL ||
           m_code == SQLITE_PERM;
}

Database::Database(const std::string& path, Mode mode)
{
    const bool asItStands = mode == Mode::AsItStands;
    const int create = mode == Mode::Create ? SQLITE_OPEN_CREATE : 0;
    const int way = asItStands ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE | create;
    const std::string name = asItStands ? "file:" + Escaped(path) + "?immutable=1" : path;
    const int code = sqlite3_open_v2(name.c_str(), &m_handle, way | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code == SQLITE_OK) {
        sqlite3_busy_timeout(m_handle, kBusyMilliseconds);
        return;
    }
    const DatabaseError error(code & 0xff, m_handle ? sqlite3_errmsg(m_handle) : sqlite3_errstr(code));
    sqlite3_close(m_handle);
    throw error;
}

Database::~Database()
{
    sqlite3_close(m_handle);
}

void Database::Run(const char* sql)
{
    const int code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        Fail(m_handle, code);
}

std::int64_t Database::Number(const char* sql)
{
    Statement statement(*this, sql);
    return statement.Step() ? statement.Number(0) : 0;
}

std::string Database::Text(const char* sql)
{
    Statement statement(*this, sql);
    return statement.Step() ? statement.Bytes(0) : std::string();
}

Statement::Statement(Database& database, const char* sql) : m_database(database)
{
    Check(sqlite3_prepare_v2(database.m_handle, sql, -1, &m_handle, nullptr));
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
}

void Statement::Check(int code) const
{
    if (code != SQLITE_OK)
        Fail(m_database.m_handle, code);
}

Statement& Statement::BindText(int parameter, std::string_view text)
{
    Check(sqlite3_bind_text64(m_handle, parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::BindBytes(int parameter, std::string_view bytes)
{
    // A null pointer would store NULL in place of no bytes.
    const char* data = bytes.empty() ? "" : bytes.data();
    Check(sqlite3_bind_blob64(m_handle, parameter, data, bytes.size(), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::BindNumber(int parameter, std::int64_t number)
{
    Check(sqlite3_bind_int64(m_handle, parameter, number));
    return *this;
}

bool Statement::Step()
{
    const int code = sqlite3_step(m_handle);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        Fail(m_database.m_handle, code);
    return false;
}

std::int64_t Statement::Number(int column)
{
    return sqlite3_column_int64(m_handle, column);
}

std::string Statement::Bytes(int column)
{
    const void* data = sqlite3_column_blob(m_handle, column);
    const int size = sqlite3_column_bytes(m_handle, column);
    return data && size > 0 ? std::string(static_cast<const char*>(data), static_cast<std::size_t>(size))
                            : std::string();
}

} // namespace sm::store
