// A header beside its user.
