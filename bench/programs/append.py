# A text that grows by pieces.
size = 100000


def main(size):
    text = ""
    for i in range(1, size + 1):
        text += str(i) + ","
    print(len(text))
    print(text[-8:])


main(size)
