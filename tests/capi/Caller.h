#ifndef CALLER_H
#define CALLER_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Picks a customer of an entity as a host in C does. The code of the call; the key goes to `key`, what is wrong to
 * `message`, both cut at `size` bytes. */
int CallerPicksCustomer(const char* connection, const char* entity, char* key, char* message, size_t size);

/* How many arguments all picks have together; 0 when a list does not come or lacks a value. */
size_t CallerCountsArguments(void);

#ifdef __cplusplus
}
#endif

#endif
