# Recursive calls of a procedure: the nodes of a full binary tree.
size = 16


def tree(depth):
    if depth == 0:
        return 1
    return tree(depth - 1) + tree(depth - 1) + 1


print(tree(size))
