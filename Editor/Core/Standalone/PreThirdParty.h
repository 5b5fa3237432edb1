// Stands before the headers of libraries that use our macro names as identifiers; HAL/PostThirdParty.h ends the
// section. No include guard: a file may have several such sections.

#pragma push_macro("check")
#pragma push_macro("verify")
#pragma push_macro("ensure")
#pragma push_macro("TEXT")
#pragma push_macro("PI")
#undef check
#undef verify
#undef ensure
#undef TEXT
#undef PI
