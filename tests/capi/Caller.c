#include "Caller.h"

#include <stdio.h>

#include "capi/zulpick.h"

int CallerPicksCustomer(const char* connection, const char* entity, char* key, char* message, size_t size) {
  const char* const names[] = {"entity", "allow-inactive"};
  const char* const values[] = {entity, "no"};
  zul_result* result = zul_pick(connection, "customer", names, values, 2);
  const int code = zul_result_code(result);
  snprintf(key, size, "%s", zul_result_text(result));
  snprintf(message, size, "%s", zul_result_message(result));
  zul_result_free(result);
  return code;
}

/* How many of the rows have every value; -1 when one has not. */
static long CountRows(const zul_result* result, const char* const* names, size_t count) {
  size_t row;
  size_t name;
  if (zul_result_code(result) != ZUL_OK) return -1;
  for (row = 0; row < zul_result_count(result); ++row) {
    for (name = 0; name < count; ++name) {
      if (zul_result_value(result, row, names[name]) == NULL) return -1;
    }
  }
  return (long)row;
}

size_t CallerCountsArguments(void) {
  static const char* const pick_values[] = {"name", "group", "help"};
  static const char* const argument_values[] = {"name", "kind", "help", "values", "default", "in-out"};
  zul_result* picks = zul_list_picks();
  long count = CountRows(picks, pick_values, 3);
  size_t all = 0;
  size_t row;
  for (row = 0; (long)row < count; ++row) {
    zul_result* arguments = zul_list_arguments(zul_result_value(picks, row, "name"));
    const long here = CountRows(arguments, argument_values, 6);
    zul_result_free(arguments);
    if (here < 0) count = 0;
    all += (size_t)here;
  }
  zul_result_free(picks);
  return count > 0 ? all : 0;
}
