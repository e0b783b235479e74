VERSION 5.00
Begin VB.Form frmOpenSeason 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Open Season"
   ClientHeight    =   6095
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1030
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmOpenSeason"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdBrowse_Click()
    CommonDialog1.ShowOpen
    frmBrowse.Show vbModal
End Sub

