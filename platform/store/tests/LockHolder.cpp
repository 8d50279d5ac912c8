// Holds a lock on an SQLite file until its standard input closes, and says on standard output when it has it.
// Arguments: the file; "reading", "writing" or "alone".

#include <sqlite3.h>

#include <iostream>
#include <map>
#include <memory>
#include <string>

int main(int argc, char** argv) {
    const std::map<std::string, const char*> statements{
        {"reading", "BEGIN; SELECT count(*) FROM sqlite_schema"},
        {"writing", "BEGIN IMMEDIATE"},
        {"alone", "BEGIN EXCLUSIVE"},
    };
    const auto statement = argc == 3 ? statements.find(argv[2]) : statements.end();
    if (statement == statements.end()) return 2;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(argv[1], &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close_v2);
    if (code != SQLITE_OK) return 1;
    if (sqlite3_exec(opened, statement->second, nullptr, nullptr, nullptr) != SQLITE_OK) return 1;
    std::cout << "locked" << std::endl;
    while (std::cin.get() != std::char_traits<char>::eof())
        continue;
}
