#pragma once

#include <string>
#include <vector>

/// A query as a dialog puts it together, and what the servers get for it.
struct TGoldenCase {
  std::string Title;  // unique over all files: the file's name, a colon, the case's own title
  std::string Dialog;
  std::string SQLite;
  std::string PostgreSQL;
  std::string MariaDB;
  bool MustFail = false;  // every server must refuse it
};

/// All cases of the folder `golden`; throws `std::runtime_error` for a file that is not of its form.
std::vector<TGoldenCase> ReadGoldenCases();
