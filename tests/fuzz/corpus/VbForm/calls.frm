Begin VB.Form f
Caption="f"
End
frmA.Show
' frmB.Show
Rem frmC.Show
x Rem y.Show
Me.Show
.Show
a;b.Show
frmAb.Show 1
