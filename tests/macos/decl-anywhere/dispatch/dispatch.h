// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// What the adapters use of the system's queues, for a target that has none.
#pragma once
#include <stdint.h>

typedef void (*dispatch_function_t)(void*);
typedef struct dispatch_source_s* dispatch_source_t;
typedef struct dispatch_queue_s* dispatch_queue_t;
typedef const struct dispatch_source_type_s* dispatch_source_type_t;
#define DISPATCH_VNODE_DELETE 0x1ul
#define DISPATCH_VNODE_WRITE 0x2ul
#define DISPATCH_VNODE_RENAME 0x20ul
#define QOS_CLASS_UTILITY 0x11
#ifdef __cplusplus
extern "C" {
#endif
extern const struct dispatch_source_type_s _dispatch_source_type_vnode;
#define DISPATCH_SOURCE_TYPE_VNODE (&_dispatch_source_type_vnode)
dispatch_queue_t dispatch_get_global_queue(intptr_t priority, uintptr_t flags);
dispatch_queue_t dispatch_queue_create_with_target(const char* label, void* attributes, dispatch_queue_t target);
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle, uintptr_t mask,
                                         dispatch_queue_t queue);
void dispatch_set_context(dispatch_source_t object, void* context);
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_resume(dispatch_source_t object);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_release(dispatch_source_t object);
#ifdef __cplusplus
}
#endif
