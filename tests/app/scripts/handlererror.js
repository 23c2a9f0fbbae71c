// An error thrown in an event handler fails the script, which still runs on.
Quiver1.PropertyChanged.connect(function (name) { throw new Error("handler saw " + name); });
Quiver1.PlaySounds = false;
print("went on");
