// tavo-one-insert DATABASE: one row into a table of its own, kept on the disk when this ends: the least that a program
// can do that adds something to an SQLite database in its ordinary safe way.
#include <sqlite3.h>

#include <cstdio>

int main(int count, char** words) {
    constexpr const char* work = "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
                                 "CREATE TABLE IF NOT EXISTS note(id INTEGER PRIMARY KEY, text TEXT);"
                                 "INSERT INTO note(text) VALUES ('Dentist')";
    sqlite3* database = nullptr;
    const bool isDone = count == 2 && sqlite3_open(words[1], &database) == SQLITE_OK &&
                        sqlite3_exec(database, work, nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!isDone) {
        std::fprintf(stderr, "usage: tavo-one-insert DATABASE\n");
    }
    sqlite3_close(database);
    return isDone ? 0 : 2;
}
