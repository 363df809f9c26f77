# The distribution's compiled library is not for a Mac, so its headers are used instead.
include(DistributionHeaders)
distribution_headers(fmt::fmt fmt)
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY=1)
set(fmt_FOUND TRUE)
