#pragma once

namespace platform {

// Removes from this process's environment what would change where and how libpq connects: everything that
// begins with PG, except the names of the service file and of the password file. Where a parameter is empty
// or absent libpq takes the environment's. To be called before there are threads.
void unsetServerEnvironment();

} // namespace platform
