# The distribution's compiled library is not a Mac's, so its headers stand in for it.
include(DistributionHeaders)
distribution_headers(fmt::fmt fmt)
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY=1)
set(fmt_FOUND TRUE)
