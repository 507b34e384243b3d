/*
 * avlorlogic.h: the C interface of the AvlorLogic component, for hosts
 * written in languages other than C++. It offers the same late-bound calls as
 * avlor/component/LateBound.h: create a public class by its programmatic name
 * ("AvlorLogic.clsUtenti"), call its operations by name with loosely typed
 * values, read the result and the arguments as the call left them.
 *
 * Every function that can fail returns 0 on success and a non-zero code on
 * failure; the failure's message is then available from avlor_last_error()
 * until the next call on the same thread. Strings handed out stay valid until
 * the value (or object) that owns them is freed.
 */
#ifndef AVLOR_AVLORLOGIC_H
#define AVLOR_AVLORLOGIC_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define AVLOR_C_API __attribute__((visibility("default")))
#else
#define AVLOR_C_API
#endif

typedef struct avlor_object avlor_object;
typedef struct avlor_value avlor_value;

/* Kinds of value, as avlor_value_kind reports them. */
enum avlor_kind {
    AVLOR_EMPTY = 0,
    AVLOR_NULL = 1,
    AVLOR_BOOLEAN = 2,
    AVLOR_INTEGER = 3,
    AVLOR_LONG = 4,
    AVLOR_DOUBLE = 5,
    AVLOR_CURRENCY = 6,
    AVLOR_DATE = 7,
    AVLOR_TEXT = 8,
    AVLOR_COLLECTION = 9
};

/* Failure codes. */
enum avlor_status { AVLOR_OK = 0, AVLOR_FAILED = 1, AVLOR_BAD_ARGUMENT = 2 };

/* The message of the last failure on this thread ("" when none). */
AVLOR_C_API const char* avlor_last_error(void);

/* Chooses the practice database of this process (path, file: URI or
 * postgresql:// URI); NULL or "" returns to the default location. */
AVLOR_C_API int avlor_set_database(const char* location);

/* Messages that the component shows (for example the tariff engine's
 * "Attenzione"): the callback receives text and title and returns the
 * button pressed (0 OK, 1 Cancel, 2 Yes, 3 No). NULL restores the quiet log. */
typedef int (*avlor_message_callback)(const char* text, const char* title, void* user_data);
AVLOR_C_API void avlor_set_message_callback(avlor_message_callback callback, void* user_data);

/* Creation and release of a public class. */
AVLOR_C_API int avlor_create(const char* prog_id, avlor_object** out_object);
AVLOR_C_API void avlor_release(avlor_object* object);

/* Calls `method` with `count` arguments. The arguments are updated in place
 * with the values the call left in them (by-reference outputs). *out_result
 * receives a new value to free with avlor_value_free (AVLOR_EMPTY when the
 * operation returns nothing). */
AVLOR_C_API int avlor_call(avlor_object* object, const char* method, avlor_value** arguments, size_t count,
                           avlor_value** out_result);

/* Values. */
AVLOR_C_API avlor_value* avlor_value_empty(void);
AVLOR_C_API avlor_value* avlor_value_null(void);
AVLOR_C_API avlor_value* avlor_value_boolean(int truth);
AVLOR_C_API avlor_value* avlor_value_long(int32_t number);
AVLOR_C_API avlor_value* avlor_value_double(double number);
AVLOR_C_API avlor_value* avlor_value_text(const char* utf8);
/* An exact amount from decimal text with a point ("27950.5"); NULL on bad text. */
AVLOR_C_API avlor_value* avlor_value_currency(const char* decimal_text);
AVLOR_C_API void avlor_value_free(avlor_value* value);

AVLOR_C_API int avlor_value_kind(const avlor_value* value);
/* The value joined to text (amounts exact, dates day first); owned by the value. */
AVLOR_C_API const char* avlor_value_as_text(avlor_value* value);
/* Amounts as exact text with four decimals ("27950.0000"); NULL when the value is not numeric. */
AVLOR_C_API const char* avlor_value_as_amount(avlor_value* value);
AVLOR_C_API int avlor_value_as_long(const avlor_value* value, int32_t* out_number);
/* Collections: number of items and item i (1-based, owned by the collection). */
AVLOR_C_API size_t avlor_value_count(const avlor_value* value);
AVLOR_C_API avlor_value* avlor_value_item(avlor_value* value, size_t index);

#ifdef __cplusplus
}
#endif

#endif /* AVLOR_AVLORLOGIC_H */
