/* The editor of replacement definitions for hosts in C, and in every language that calls C.
 *
 * All texts are UTF-8 and end with a zero. Every function takes a null pointer where it takes an
 * editor. No C++ exception leaves one: a function that can fail returns 0 when it is done and 1
 * when it failed, and ta_vorlumine_last_failure tells why.
 *
 * An editor is used by one thread at a time. The window runs on the thread that calls
 * ta_vorlumine_show. That is the thread of the host's toolkit application if the host has one, else
 * any thread, but the same for all editors of the process as long as it lives: elsewhere the call
 * fails.
 */
#ifndef TA_VORLUMINE_H
#define TA_VORLUMINE_H

#if defined(__GNUC__)
#define TA_VORLUMINE_API __attribute__((visibility("default")))
#else
#define TA_VORLUMINE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ta_vorlumine_editor ta_vorlumine_editor;

/* The version of the library that runs, such as "1.2.3". */
TA_VORLUMINE_API const char* ta_vorlumine_version(void);

/* Makes an editor without a connection string, to be given to ta_vorlumine_destroy in the end.
 * Null if there is no memory. */
TA_VORLUMINE_API ta_vorlumine_editor* ta_vorlumine_create(void);

/* Names the rule store: "Driver=SQLite;Database=<path of an existing store>". The text is copied;
 * null counts as the empty text. */
TA_VORLUMINE_API int ta_vorlumine_set_connect_string(ta_vorlumine_editor* editor,
                                                     const char* connect_string);

/* The connection string, empty until one is set. Never null. Belongs to the editor, and is valid
 * until the next connection string is set or the editor is destroyed. */
TA_VORLUMINE_API const char* ta_vorlumine_get_connect_string(const ta_vorlumine_editor* editor);

/* Opens the store, runs the title browser modally on the calling thread, and returns when the user
 * has closed it; everything the user did stands in the store. Works any number of times, after a
 * failure too. */
TA_VORLUMINE_API int ta_vorlumine_show(ta_vorlumine_editor* editor);

/* Why the last call with this editor failed, empty if it did not. Never null. Belongs to the
 * editor, and is valid until the next connection string is set, the next show, or the editor is
 * destroyed. */
TA_VORLUMINE_API const char* ta_vorlumine_last_failure(const ta_vorlumine_editor* editor);

/* Frees the editor and the texts that it gave. Not while it shows. */
TA_VORLUMINE_API void ta_vorlumine_destroy(ta_vorlumine_editor* editor);

#ifdef __cplusplus
}
#endif

#endif
