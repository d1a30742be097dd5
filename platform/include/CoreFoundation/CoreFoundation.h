// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The part of CoreFoundation that Growl's records and the notification library use, with the names, signatures and
/// ownership rules of the system framework: whoever creates or copies an object owns one reference on it, whoever gets
/// one borrows it. Misuse that would crash the framework (a null where an object must be, a reference given up twice)
/// ends the program here too. The default allocator is the only one. References are counted atomically.

#ifdef __cplusplus
extern "C" {
#endif

#define CF_EXPORT extern __attribute__((visibility("default")))

typedef unsigned char Boolean;
typedef unsigned char UInt8;
typedef unsigned short UniChar;
typedef unsigned int UInt32;
typedef signed long CFIndex;
typedef unsigned long CFTypeID;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFHashCode;
typedef UInt32 CFStringEncoding;
typedef const void* CFTypeRef;
typedef CFTypeRef CFPropertyListRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFArray* CFArrayRef;
typedef struct __CFArray* CFMutableArrayRef;
typedef const struct __CFDictionary* CFDictionaryRef;

typedef struct
{
    CFIndex location;
    CFIndex length;
} CFRange;

/* Call-backs of collections: what is done to a value on its way in and out. Null pointers mean that values are kept
   as bare addresses. */
typedef const void* (*CFArrayRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFArrayReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFArrayCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFArrayEqualCallBack)(const void* one, const void* other);
typedef struct
{
    CFIndex version;
    CFArrayRetainCallBack retain;
    CFArrayReleaseCallBack release;
    CFArrayCopyDescriptionCallBack copyDescription;
    CFArrayEqualCallBack equal;
} CFArrayCallBacks;

typedef const void* (*CFDictionaryRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFDictionaryReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFDictionaryCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFDictionaryEqualCallBack)(const void* one, const void* other);
typedef CFHashCode (*CFDictionaryHashCallBack)(const void* value);
typedef struct
{
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
    CFDictionaryHashCallBack hash;
} CFDictionaryKeyCallBacks;
// Repeated: the framework has two records, and C cannot derive one from the other.
typedef struct
{
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
} CFDictionaryValueCallBacks;

CF_EXPORT const CFAllocatorRef kCFAllocatorDefault;
/* Retain, release and compare values as CoreFoundation objects. */
CF_EXPORT const CFArrayCallBacks kCFTypeArrayCallBacks;
CF_EXPORT const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;

enum {
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingUnicode = 0x0100,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUTF8 = 0x08000100
};
enum { kCFPropertyListImmutable = 0 };

/* Objects. Null traps in all of them but CFShow, and so does an object that exists no more. */
CF_EXPORT CFTypeRef CFRetain(CFTypeRef object);
CF_EXPORT void CFRelease(CFTypeRef object);
/* The number of references; a very large number for a constant. */
CF_EXPORT CFIndex CFGetRetainCount(CFTypeRef object);
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef object);
/* False across types. Strings compare by UTF-16 units, data by bytes, collections by their values. */
CF_EXPORT Boolean CFEqual(CFTypeRef one, CFTypeRef other);
CF_EXPORT CFHashCode CFHash(CFTypeRef object);
/* Prints to standard error: a string's bare text with other than ASCII units as \uXXXX, "(null)" for null; a newline.
 */
CF_EXPORT void CFShow(CFTypeRef object);

/* Strings. */
CF_EXPORT CFTypeID CFStringGetTypeID(void);
/* Null when the bytes are no text in that encoding. Unicode: without `isExternalRepresentation` the machine's byte
   order and no byte-order mark; with it, a mark decides, and big-endian without one. */
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex numBytes,
                                              CFStringEncoding encoding, Boolean isExternalRepresentation);
/* Null when a character has no place in the encoding and `lossByte` is 0. */
CF_EXPORT CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator, CFStringRef string,
                                                         CFStringEncoding encoding, UInt8 lossByte);
/* In UTF-16 units. */
CF_EXPORT CFIndex CFStringGetLength(CFStringRef string);
CF_EXPORT void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer);

/* A constant string: the same object for the same text, never freed. Compilers for Mac OS X make it themselves; here
   the text (ASCII) is looked up at each use. */
CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* text);
#define CFSTR(text) __CFStringMakeConstantString("" text "")

/* Data. */
CF_EXPORT CFTypeID CFDataGetTypeID(void);
CF_EXPORT CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);
CF_EXPORT const UInt8* CFDataGetBytePtr(CFDataRef data);
CF_EXPORT CFIndex CFDataGetLength(CFDataRef data);

/* Arrays. A null value traps with the standard call-backs, an index out of bounds always. */
CF_EXPORT CFTypeID CFArrayGetTypeID(void);
CF_EXPORT CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex numValues,
                                   const CFArrayCallBacks* callBacks);
/* Empty and free to grow, whatever the capacity, which is a hint. */
CF_EXPORT CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity,
                                                 const CFArrayCallBacks* callBacks);
CF_EXPORT void CFArrayAppendValue(CFMutableArrayRef array, const void* value);
CF_EXPORT CFIndex CFArrayGetCount(CFArrayRef array);
CF_EXPORT const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);

/* Dictionaries. The first of two equal keys counts. */
CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);
CF_EXPORT CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values,
                                             CFIndex numValues, const CFDictionaryKeyCallBacks* keyCallBacks,
                                             const CFDictionaryValueCallBacks* valueCallBacks);
CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
/* Null when there is no such key. */
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

/* Property lists, as far as they are strings: `<string>text</string>`, bare or in a `<plist>` document. Otherwise null,
   and `*errorString`, which is null on success, is a string that the caller owns. */
CF_EXPORT CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef allocator, CFDataRef xmlData,
                                                            CFOptionFlags mutabilityOption, CFStringRef* errorString);

#ifdef __cplusplus
}
#endif
