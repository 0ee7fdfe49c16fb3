// SPDX-License-Identifier: GPL-3.0-or-later
// SQLite as the store uses it: a connection, a statement, one kind of error.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace sm::store {

class DatabaseError : public std::runtime_error {
public:
    DatabaseError(int code, const std::string& message) : std::runtime_error(message), m_code(code) {}
    /// The file is no database, or its contents are damaged.
    [[nodiscard]] bool MeansDamage() const;
    /// The place can't be written, which even reading needs where several processes read and write.
    [[nodiscard]] bool MeansNoWriting() const;

private:
    int m_code; ///< SQLite's primary result code
};

/// Every operation throws DatabaseError. One thread only.
class Database {
public:
    /// As it stands: what nobody changes meanwhile, for a place that can't be written.
    enum class Mode { Existing, Create, AsItStands };
    Database(const std::string& path, Mode mode);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that give no rows.
    void Run(const char* sql);
    /// The first column of the first row as a number or text; 0 or empty when there is no row.
    std::int64_t Number(const char* sql);
    std::string Text(const char* sql);

private:
    friend class Statement;
    sqlite3* m_handle = nullptr;
};

class Statement {
public:
    Statement(Database& database, const char* sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Parameters count from 1. The bytes are copied.
    Statement& BindText(int parameter, std::string_view text);
    Statement& BindBytes(int parameter, std::string_view bytes);
    Statement& BindNumber(int parameter, std::int64_t number);
    /// True when there is a row to read.
    bool Step();
    /// Columns count from 0.
    std::int64_t Number(int column);
    std::string Bytes(int column);

private:
    void Check(int code) const;
    Database& m_database;
    sqlite3_stmt* m_handle = nullptr;
};

} // namespace sm::store
