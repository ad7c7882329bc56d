#include "platform/polars.h"

#include <algorithm>
#include <functional>
#include <sqlite3.h>
#include <utility>

#include "core/files.h"
#include "core/text.h"
#include "platform/access_database.h"

namespace skerrow {
namespace {

constexpr int kBusyMs = 2000;
constexpr std::size_t kLongestName = 64;

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
struct FinishStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinishStatement>;

// A name as SQL has it.
std::string Quoted(std::string_view name) {
  return "\"" + ReplaceAll(std::string(name), "\"", "\"\"") + "\"";
}

// An open database. Every call gives the error of the database, with its file.
class Database {
 public:
  static Result<Database> Open(const std::string& path, int flags) {
    if (!FileReadable(path)) return Error{path, "the polar database is missing"};
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, flags, nullptr);
    Database database(path, raw);
    if (code != SQLITE_OK) return database.Fault();
    sqlite3_busy_timeout(raw, kBusyMs);
    return database;
  }

  Error Fault() const {
    switch (sqlite3_errcode(database_.get())) {
      case SQLITE_BUSY:
      case SQLITE_LOCKED:
        return {path_, "the polar database is in use by another program"};
      case SQLITE_NOTADB:
      case SQLITE_CORRUPT:
        return {path_, "the polar database is damaged"};
      default:
        return {path_, sqlite3_errmsg(database_.get())};
    }
  }

  Result<Statement> Prepare(const std::string& sql) const {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &raw, nullptr) != SQLITE_OK) {
      return Fault();
    }
    return Statement(raw);
  }

  Status Do(const std::string& sql, const std::vector<std::string>& values = {}) const {
    Result<Statement> statement = Prepare(sql);
    if (!statement) return statement.error();
    for (std::size_t i = 0; i < values.size(); ++i) Bind(statement.value(), i, values[i]);
    return sqlite3_step(statement->get()) == SQLITE_DONE ? Status(Done{}) : Status(Fault());
  }

  static void Bind(const Statement& statement, std::size_t place, const std::string& value) {
    sqlite3_bind_text(statement.get(), static_cast<int>(place) + 1, value.c_str(),
                      static_cast<int>(value.size()), SQLITE_TRANSIENT);
  }

  // The rows of a query, `take` called at each. Values are asked for as text.
  Status Each(const std::string& sql, const std::vector<std::string>& values,
              const std::function<void(sqlite3_stmt*)>& take) const {
    const Result<Statement> statement = Prepare(sql);
    if (!statement) return statement.error();
    for (std::size_t i = 0; i < values.size(); ++i) Bind(*statement, i, values[i]);
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement->get())) == SQLITE_ROW) take(statement->get());
    return code == SQLITE_DONE ? Status(Done{}) : Status(Fault());
  }

  int Changed() const { return sqlite3_changes(database_.get()); }
  const std::string& path() const { return path_; }

 private:
  Database(std::string path, sqlite3* raw) : path_(std::move(path)), database_(raw) {}
  std::string path_;
  std::unique_ptr<sqlite3, CloseDatabase> database_;
};

std::string TextAt(sqlite3_stmt* row, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return text == nullptr ? std::string() : std::string(text);
}

class SqlitePolars final : public PolarDatabase {
 public:
  SqlitePolars(std::string installed, std::string user)
      : installed_(std::move(installed)), user_(std::move(user)) {}

  std::string Path() const override { return FileIsThere(user_) ? user_ : installed_; }

  Result<std::vector<std::string>> SetUps() override {
    const Result<Database> database = OpenToRead();
    if (!database) return database.error();
    return NamesIn(*database);
  }

  Result<PolarRows> Read(std::string_view set_up) override {
    const Result<Database> database = OpenToRead();
    if (!database) return database.error();
    if (const Status there = MustBeThere(*database, set_up); !there) return there.error();
    return RowsIn(*database, set_up);
  }

  Status Change(std::string_view set_up, const std::vector<PolarChange>& changes) override {
    return Write([&](const Database& database) -> Status {
      if (Status there = MustBeThere(database, set_up); !there) return there;
      for (const PolarChange& change : changes) {
        if (change.column >= kPolarColumns.size()) return NoCell(database);
        std::string sql = "UPDATE " + Quoted(set_up);
        sql.append(" SET ").append(Quoted(kPolarColumns[change.column]));
        sql.append(" = ? WHERE rowid = (SELECT rowid FROM ").append(Quoted(set_up));
        sql.append(" ORDER BY rowid LIMIT 1 OFFSET ").append(std::to_string(change.row) + ")");
        Status done = database.Do(sql, {change.text});
        if (!done) return done;
        if (database.Changed() != 1) return NoCell(database);
      }
      return Done{};
    });
  }

  Status Create(std::string_view set_up, const PolarRows& rows) override {
    return Write([&](const Database& database) -> Status {
      if (Status free = MustBeFree(database, set_up); !free) return free;
      return Add(database, set_up, rows);
    });
  }

  // Adds those whose names are free.
  Result<PolarsImported> CreateAll(const std::vector<AccessSetUp>& set_ups) {
    PolarsImported imported;
    const Status done = Write([&](const Database& database) -> Status {
      for (const AccessSetUp& set_up : set_ups) {
        const Status free = MustBeFree(database, set_up.name);
        if (!set_up.trouble.empty() || !free) {
          imported.left_out.push_back(
              {set_up.name, set_up.trouble.empty() ? free.error().reason : set_up.trouble});
          continue;
        }
        if (Status added = Add(database, set_up.name, set_up.rows); !added) return added;
        imported.added.push_back(set_up.name);
      }
      return Done{};
    });
    if (!done) return done.error();
    return imported;
  }
  Status Rename(std::string_view set_up, std::string_view name) override {
    return Write([&](const Database& database) -> Status {
      if (Status there = MustBeThere(database, set_up); !there) return there;
      if (Status free = MustBeFree(database, name, set_up); !free) return free;
      // By way of another name, since the database takes names in other letters for the same.
      const std::string between = Quoted("sailing under no name");
      Status done = database.Do("ALTER TABLE " + Quoted(set_up) + " RENAME TO " + between);
      if (done) done = database.Do("ALTER TABLE " + between + " RENAME TO " + Quoted(name));
      if (!done) return done;
      return database.Do("UPDATE SetUps SET SetUp = ? WHERE SetUp = ?",
                         {std::string(name), std::string(set_up)});
    });
  }

  Status Delete(std::string_view set_up) override {
    return Write([&](const Database& database) -> Status {
      if (Status there = MustBeThere(database, set_up); !there) return there;
      Status done = database.Do("DROP TABLE " + Quoted(set_up));
      if (!done) return done;
      return database.Do("DELETE FROM SetUps WHERE SetUp = ?", {std::string(set_up)});
    });
  }

 private:
  Result<Database> OpenToRead() const { return Database::Open(Path(), SQLITE_OPEN_READONLY); }

  // Adds a set-up whose name is free.
  static Status Add(const Database& database, std::string_view set_up, const PolarRows& rows) {
    std::string columns;
    std::string places;
    for (const std::string_view column : kPolarColumns) {
      if (!columns.empty()) {
        columns += ", ";
        places += ", ";
      }
      columns += Quoted(column);
      places += "?";
    }
    Status done = database.Do("CREATE TABLE " + Quoted(set_up) + " (" + columns + ")");
    const std::string insert = "INSERT INTO " + Quoted(set_up) + " VALUES (" + places + ")";
    for (std::size_t i = 0; done && i < rows.size(); ++i) {
      std::vector<std::string> values;
      for (const auto& cell : rows[i]) values.push_back(cell.value_or(""));
      done = database.Do(insert, values);
    }
    if (!done) return done;
    return database.Do("INSERT INTO SetUps (SetUp) VALUES (?)", {std::string(set_up)});
  }

  static Error NoCell(const Database& database) {
    return {database.path(), "the table of this set-up has no such row or column"};
  }

  static Result<std::vector<std::string>> NamesIn(const Database& database) {
    std::vector<std::string> names;
    const Status read =
        database.Each("SELECT SetUp FROM SetUps ORDER BY rowid", {}, [&](sqlite3_stmt* row) {
          if (std::string name = Trim(TextAt(row, 0)); !name.empty()) {
            names.push_back(std::move(name));
          }
        });
    if (!read) return read.error();
    return names;
  }

  static Result<bool> Holds(const Database& database, std::string_view set_up) {
    const Result<std::vector<std::string>> names = NamesIn(database);
    if (!names) return names.error();
    return std::find(names->begin(), names->end(), set_up) != names->end();
  }

  static Status MustBeThere(const Database& database, std::string_view set_up) {
    const Result<bool> holds = Holds(database, set_up);
    if (!holds) return holds.error();
    if (*holds) return Done{};
    return Error{database.path(), "there is no set-up \"" + std::string(set_up) + "\""};
  }

  // Names of tables that differ by case alone are the same to the database.
  static Status MustBeFree(const Database& database, std::string_view name,
                           std::string_view except = {}) {
    if (Trim(name).empty() || name.size() > kLongestName || Trim(name) != name ||
        name.find('\0') != std::string_view::npos) {
      return Error{database.path(), "the name of a set-up has from 1 to 64 letters"};
    }
    int tables = 0;
    Status read = database.Each(
        "SELECT name FROM sqlite_master WHERE lower(name) = lower(?)", {std::string(name)},
        [&](sqlite3_stmt* row) { tables += TextAt(row, 0) == except ? 0 : 1; });
    if (!read) return read;
    if (tables == 0 && !ToLowerAscii(name).starts_with("sqlite_")) return Done{};
    return Error{database.path(), "the name \"" + std::string(name) + "\" is taken"};
  }

  static Result<PolarRows> RowsIn(const Database& database, std::string_view set_up) {
    // Which of the columns there are, by their place in the result.
    std::vector<std::size_t> present;
    std::string columns;
    for (std::size_t i = 0; i < kPolarColumns.size(); ++i) {
      bool found = false;
      const Status read =
          database.Each("SELECT 1 FROM pragma_table_info(?) WHERE lower(name) = lower(?)",
                        {std::string(set_up), std::string(kPolarColumns[i])},
                        [&](sqlite3_stmt*) { found = true; });
      if (!read) return read.error();
      if (!found) continue;
      columns += (present.empty() ? "" : ", ") + Quoted(kPolarColumns[i]);
      present.push_back(i);
    }
    PolarRows rows;
    if (present.empty()) return rows;
    const Status read =
        database.Each("SELECT " + columns + " FROM " + Quoted(set_up) + " ORDER BY rowid", {},
                      [&](sqlite3_stmt* row) {
                        PolarRow& texts = rows.emplace_back();
                        for (std::size_t i = 0; i < present.size(); ++i) {
                          std::string text = TextAt(row, static_cast<int>(i));
                          if (!text.empty()) texts[present[i]] = std::move(text);
                        }
                      });
    if (!read) return read.error();
    return rows;
  }

  // Runs `work` on the user's database, whole or not at all.
  Status Write(const std::function<Status(const Database&)>& work) const {
    if (!FileIsThere(user_)) {
      const Result<std::string> installed = ReadFile(installed_);
      if (!installed) return installed.error();
      if (Status made = MakeFolder(FolderOf(user_)); !made) return made;
      if (Status copied = ReplaceFile(user_, *installed); !copied) return copied;
    }
    const Result<Database> database = Database::Open(user_, SQLITE_OPEN_READWRITE);
    if (!database) return database.error();
    if (Status begun = database->Do("BEGIN IMMEDIATE"); !begun) return begun;
    Status done = work(*database);
    if (!done) {
      (void)database->Do("ROLLBACK");
      return done;
    }
    if (Status kept = database->Do("COMMIT"); !kept) {
      (void)database->Do("ROLLBACK");
      return kept;
    }
    return Done{};
  }

  std::string installed_;
  std::string user_;
};

}  // namespace

std::unique_ptr<PolarDatabase> OpenPolarDatabase(const std::string& installed_file,
                                                 const std::string& user_file) {
  return std::make_unique<SqlitePolars>(installed_file, user_file);
}

Result<PolarsImported> ImportAccessPolars(const std::string& installed_file,
                                          const std::string& user_file, const std::string& file,
                                          std::string_view only) {
  Result<std::vector<AccessSetUp>> set_ups = ReadAccessPolars(file);
  if (!set_ups) return set_ups.error();
  if (!only.empty()) {
    std::erase_if(set_ups.value(),
                  [only](const AccessSetUp& set_up) { return set_up.name != only; });
  }
  if (set_ups->empty()) {
    return Error{file, only.empty() ? "there are no set-ups in it"
                                    : "there is no set-up \"" + std::string(only) + "\" in it"};
  }
  return SqlitePolars(installed_file, user_file).CreateAll(*set_ups);
}

bool IsAccessFile(std::string_view file) { return ToLowerAscii(file).ends_with(".mdb"); }

}  // namespace skerrow
