VERSION 5.00
Begin VB.Form frmVariety 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Varieties: Apple/Pear"
   ClientHeight    =   3125
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   1013
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmVariety"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub lstVariety_DblClick()
    frmVarietyEdit.Show vbModal, Me
End Sub

Private Sub cmdNew_Click()
    If MsgBox("Don't copy?", vbYesNo) = vbNo Then frmVarietyCopy.Show
    frmVariety.Show
End Sub

