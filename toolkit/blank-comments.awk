# Empties the lines of a script or style sheet that hold nothing but a comment; line numbers stay as they are.
inside { inside = !/\*\//; print ""; next }
/^[ \t]*\/\// { print ""; next }
/^[ \t]*\/\*/ && !/\*\/[ \t]*[^ \t]/ { inside = !/\*\//; print ""; next }
{ print }
