# Conditions on numbers and on text, with blocks inside blocks.
size = 300000


def main(size):
    both = 0
    total = 0
    middle = 0
    for i in range(1, size + 1):
        if i % 3 == 0:
            if i % 5 == 0:
                word = "両方"
            else:
                word = "三"
        elif i % 5 == 0:
            word = "五"
        else:
            word = "無"
        if word == "両方":
            both += 1
        if word != "無":
            total += i
        if 10 < i < 1000:
            middle += 1
        else:
            middle -= 1
    print(both)
    print(total)
    print(middle)


main(size)
