// Database files that a group of users shares.
#pragma once

#include <string>

// SQLite makes a database with what the umask of its maker leaves, and keeps the log beside it by the rights of the
// database. Where a directory hands its group on (set-group-ID) and the group may write there, this makes the missing
// file, empty and with the directory's own rights to read and write, whatever the umask: everybody who may add files
// there may change it, whoever came first. Elsewhere, and where it cannot be made, nothing happens.
void MakeSharedFile(const std::string& file);
