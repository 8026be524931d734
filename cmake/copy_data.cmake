# Copies a data file: cmake -D SOURCE=FILE -D COPY=FILE -P copy_data.cmake
# In the copy, which is as an installation has it, the file's schema is where an installation has the schemas.
file(READ ${SOURCE} text)
string(REGEX REPLACE "(<[?]xml-model href=\"[./]*)schemas/" "\\1share/fl_i18n/schemas/" text "${text}")
file(WRITE ${COPY} "${text}")
