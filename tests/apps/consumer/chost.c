/* Knows the picks by the C interface: they are listed, and a pick without an application is an error with its message.
 */
#include <stdio.h>
#include <string.h>

#include "capi/zulpick.h"

int main(void) {
  zul_result* picks = zul_list_picks();
  zul_result* result = zul_pick(NULL, "customer", NULL, NULL, 0);
  const int right = zul_result_count(picks) > 50 && zul_result_code(result) == ZUL_ERROR_APPLICATION &&
                    strstr(zul_result_message(result), "QApplication") != NULL;
  printf("chost: version %s, %s\n", zul_version(), zul_result_message(result));
  zul_result_free(result);
  zul_result_free(picks);
  return right ? 0 : 1;
}
