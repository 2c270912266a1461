# Fields of a long list.
size = 100000


def main(size):
    text = ""
    for i in range(1, size + 1):
        text += str(i) + ","
    total = 0
    fields = text.split(",")
    for i in range(1, size + 1):
        total += int(fields[i % 200])
    print(total)


main(size)
