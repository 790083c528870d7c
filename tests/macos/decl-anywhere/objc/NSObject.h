// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef bool BOOL;
#define nil nullptr
#define YES true
#define NO false
@protocol NSObject
- (BOOL)isKindOfClass:(Class)kind;
@end
__attribute__((objc_root_class))
@interface NSObject<NSObject>
+ (instancetype)alloc;
- (instancetype)init;
+ (Class)class;
@end
