#ifndef ZULPICK_H
#define ZULPICK_H

/*
 * The picks in plain C, for a host in any language in whose process a Qt connection is open.
 *
 *   zul_result* result = zul_pick("main", "customer", names, values, count);
 *   if (zul_result_code(result) == ZUL_OK) use(zul_result_text(result));
 *   zul_result_free(result);
 *
 * What holds for all functions:
 *
 * - All text is UTF-8 and ends with a zero byte. What is passed in stays the caller's and is not kept.
 * - Whatever is asked for comes as a result, which is never null. It is the caller's, who frees it with
 *   zul_result_free; the texts that are read from it live as long as it does. Nothing else is ever to be freed.
 * - A result does not change any more and belongs to no thread, so it may be read and freed on any. It is opaque, and
 *   its values are asked for by name, so that later versions can tell more without breaking a program that is compiled.
 * - Nothing is thrown.
 */

#include <stddef.h>

#include "capi/zulpickc_export.h"

#ifdef __cplusplus
#define ZUL_NOTHROW noexcept
extern "C" {
#else
#define ZUL_NOTHROW
#endif

/* How a call went. The numbers stay as they are in later versions, which may have more: any that is not below
 * ZUL_ERROR_NULL is an error. */
enum {
  ZUL_OK = 0,             /* something was chosen, or the list is there */
  ZUL_NOTHING_CHOSEN = 1, /* the user has cancelled */

  ZUL_ERROR_NULL = 10,           /* a pointer is null that must not be */
  ZUL_ERROR_UTF8 = 11,           /* a text that was passed in, or a key that was chosen, is not UTF-8 */
  ZUL_ERROR_PICK = 12,           /* there is no pick of that name */
  ZUL_ERROR_ARGUMENT = 13,       /* the pick has no argument of that name */
  ZUL_ERROR_ARGUMENT_TWICE = 14, /* an argument is given twice */
  ZUL_ERROR_VALUE = 15,          /* a value is none that its argument takes */

  ZUL_ERROR_APPLICATION = 20, /* the process has no QApplication */
  ZUL_ERROR_THREAD = 21, /* called on another thread than that of the user interface, or the connection is of one */

  ZUL_ERROR_CONNECTION = 30,  /* Qt knows no connection of that name */
  ZUL_ERROR_NOT_OPEN = 31,    /* the connection was not open when the pick was called */
  ZUL_ERROR_LOST = 32,        /* the connection broke off while the list was read: it must be opened again */
  ZUL_ERROR_QUERY_ENDED = 33, /* a query was ended by the server's administrator or by a time limit */
  ZUL_ERROR_DATABASE = 34,    /* the database refuses a query; the message is its own */

  ZUL_ERROR_MEMORY = 40,
  ZUL_ERROR_OTHER = 41
};

/* What a call gave: a code, a message, and rows of texts, each with a name. */
typedef struct zul_result zul_result;

/* The library's version: as text, such as "1.2.3", and as a number, major * 10000 + minor * 100 + patch. */
ZULPICKC_EXPORT const char* zul_version(void) ZUL_NOTHROW;
ZULPICKC_EXPORT int zul_version_number(void) ZUL_NOTHROW;

/*
 * Opens the pick's dialog over the connection and comes back when the user has chosen or cancelled. To be called on the
 * thread of the user interface, which must be that of the connection too. The event loop runs meanwhile.
 *
 * - `connection` is the name by which Qt knows it (QSqlDatabase::addDatabase); null is Qt's default connection. It must
 *   be open, and stay so during the call.
 * - `pick` is a name such as "customer"; zul_list_picks gives all.
 * - `names` and `values` are `count` arguments in any order, such as "entity" and "MAIN"; both may be null when `count`
 *   is 0. What is not given has its default. zul_list_arguments gives all, and what each takes. A code that holds a
 *   single quote is given with the quote doubled: as it is, the pick would refuse it with ZUL_ERROR_DATABASE.
 *
 * ZUL_OK has a row for each chosen key, with the value "key"; a pick whose key has several parts, such as a document's
 * number and its type, has a row for each part. ZUL_NOTHING_CHOSEN has no rows, unless the pick has an in-out argument:
 * its text comes back then as it was given.
 */
ZULPICKC_EXPORT zul_result* zul_pick(const char* connection, const char* pick, const char* const* names,
                                     const char* const* values, size_t count) ZUL_NOTHROW;

/*
 * The picks, a row for each, with the values "name", "group" (a title for several picks) and "help" (what is picked, in
 * a few words). Needs neither an application nor a connection, and may be called on any thread, as the next one.
 */
ZULPICKC_EXPORT zul_result* zul_list_picks(void) ZUL_NOTHROW;

/*
 * The arguments of a pick, a row for each, with the values
 *
 * "name"
 * "kind"     text, boolean, integer, choice (one of the values) or choices (any number of them, with commas between)
 * "help"     one line
 * "values"   those of a choice, one on a line; of a boolean, yes and no
 * "default"
 * "in-out"   yes for the argument that holds the key so far, else no
 */
ZULPICKC_EXPORT zul_result* zul_list_arguments(const char* pick) ZUL_NOTHROW;

/* ZUL_OK, ZUL_NOTHING_CHOSEN or an error; of a null result ZUL_ERROR_NULL. */
ZULPICKC_EXPORT int zul_result_code(const zul_result* result) ZUL_NOTHROW;

/* What is wrong, ready to be shown; empty when nothing is. Never null. */
ZULPICKC_EXPORT const char* zul_result_message(const zul_result* result) ZUL_NOTHROW;

/* The first value of every row, one on a line without a line end behind the last: the chosen keys, or the names. Empty
 * when there are no rows. Never null. */
ZULPICKC_EXPORT const char* zul_result_text(const zul_result* result) ZUL_NOTHROW;

/* How many rows there are; of a null result none. */
ZULPICKC_EXPORT size_t zul_result_count(const zul_result* result) ZUL_NOTHROW;

/* The value of that name in a row, counted from 0. Null when there is no such row or value, or when a pointer is null.
 */
ZULPICKC_EXPORT const char* zul_result_value(const zul_result* result, size_t row, const char* name) ZUL_NOTHROW;

/* Null is fine. */
ZULPICKC_EXPORT void zul_result_free(zul_result* result) ZUL_NOTHROW;

#ifdef __cplusplus
}
#endif

#endif
