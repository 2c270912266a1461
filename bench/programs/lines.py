# Lines of a long text, one after the other.
size = 100000


def main(size):
    text = ""
    for i in range(1, size + 1):
        text += "行" + str(i) + "\r\n"
    limit = min(size, 32767)
    length = 0
    lines = text.split("\r\n")
    for _ in range(3):
        for i in range(1, limit + 1):
            length += len(lines[i - 1])
    print(length)


main(size)
