// An error that the script does not catch ends it.
print("before");
notDefinedAnywhere();
print("after");
