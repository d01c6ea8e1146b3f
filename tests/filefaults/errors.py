"""How each call of the system can fail. What says that a file is there or is not (ENOENT, EEXIST) is an answer, no failure."""
from errno import (EACCES, EBUSY, EDQUOT, EFBIG, EINTR, EINVAL, EIO, EISDIR, ELOOP, EMFILE, EMLINK, ENAMETOOLONG, ENFILE, ENOLCK,
                   ENOMEM, ENOSPC, ENOSYS, EOVERFLOW, EPERM, EROFS, ESTALE, ETIMEDOUT, ETXTBSY, EXDEV)

HALF = -1  # of the work is done
ONCE, SAME_CALL, ALL_CALLS = range(3)

LOOK = [EACCES, EIO, ELOOP, ENAMETOOLONG, ENOMEM, EOVERFLOW, ESTALE]
OPEN = [EACCES, EINTR, EIO, ELOOP, EMFILE, ENFILE, ENOMEM, EPERM, ESTALE, ETIMEDOUT]
CHANGE = [EACCES, EBUSY, EDQUOT, EIO, ENOMEM, ENOSPC, EPERM, EROFS, ESTALE]
ERRORS = {
    "access": [EACCES, EIO, ENOMEM, EROFS, ESTALE, ETXTBSY],
    "close": [EDQUOT, EINTR, EIO, ENOSPC],
    "closedir": [EINTR, EIO],
    "create": OPEN + [EDQUOT, ENOSPC, EROFS],
    "fchmod": [EIO, EPERM, EROFS],
    "fchown": [EDQUOT, EINVAL, EIO, ENOSPC, EPERM, EROFS],
    "fdatasync": [EDQUOT, EINVAL, EIO, ENOSPC, EROFS],
    "flock": [EINTR, ENOLCK, ENOMEM],
    "fstat": [EIO, ENOMEM, EOVERFLOW, ESTALE],
    "fsync": [EDQUOT, EINTR, EINVAL, EIO, ENOSPC, EROFS],
    "link": CHANGE + [EMLINK, EXDEV],
    "lstat": LOOK,
    "open": OPEN,
    "opendir": OPEN,
    "read": [HALF, EINTR, EIO, EISDIR, ESTALE, ETIMEDOUT],
    "readdir": [EIO, EOVERFLOW],
    "readlink": [EACCES, EIO, ELOOP, ENOMEM, ESTALE],
    "rename": CHANGE + [EXDEV],
    "renameat2": CHANGE + [EINVAL, ENOSYS, EXDEV],
    "stat": LOOK,
    "statx": LOOK + [ENOSYS],
    "unlink": [EACCES, EBUSY, EIO, ENOMEM, EPERM, EROFS, ESTALE],
    "write": [HALF, EDQUOT, EFBIG, EINTR, EIO, ENOSPC, EPERM],
}


def ways_to_fail(call):
    """(error, length) of all that can go wrong with a call: once, each time, and with all the rest of the disk."""
    for error in ERRORS[call]:
        yield error, ONCE
        if error != EINTR:  # a signal does not last
            yield error, SAME_CALL
    yield EIO, ALL_CALLS
