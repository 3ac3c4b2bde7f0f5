#pragma once

/// Tells whether a registry value is text that ends where it should.
///
/// `type` is the value's registry type: plain and expandable strings pass, nothing is expanded.
/// `bytes` is the value's size in bytes: an odd size fails, and so does a last wide character that
/// isn't zero. No bytes at all is the empty text, for which the first character of `buffer` is set
/// to zero. A null `buffer` passes whatever the rest says.
bool AcceptRegistryText(unsigned long type, wchar_t* buffer, unsigned long bytes);
